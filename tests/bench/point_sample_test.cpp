#include "floor/point_sample.h"

#include <gtest/gtest.h>

#include <vector>

#include "engine/working_image.h"
#include "support/frame_set.h"

namespace plovix_bench {
namespace {

std::vector<uint8_t> WorkingImage(const FrameSize& size) {
  return std::vector<uint8_t>(static_cast<size_t>(size.workWidth) * size.workHeight * 3 / 2, 0xEE);
}

// The floor must take exactly the samples the engine's decimation takes, or the ratio of the two
// compares different work.
TEST(PointSample, TakesTheEnginesSamplesAtEverySize) {
  for (const FrameSize& size : {kFullHd, kHd, kVga}) {
    const FrameSet frames(size, 1, false);
    const Nv21Frame& f = frames.Moving(0);
    std::vector<uint8_t> floor = WorkingImage(size);
    std::vector<uint8_t> engine = WorkingImage(size);
    PointSampleNv21(f.y(), f.vu(), size.width, size.width / size.workWidth, floor.data(), size.workWidth,
                    size.workHeight);
    resizeNV21_UV(f.y(), f.vu(), size.width, size.height, engine.data(), size.workWidth, size.workHeight);
    EXPECT_EQ(floor, engine) << size.label;
  }
}

TEST(PointSample, TopLeftOfEachCellAndPairsInOrder) {
  const FrameSet frames(kFullHd, 1, false);
  const Nv21Frame& f = frames.Moving(0);
  std::vector<uint8_t> work = WorkingImage(kFullHd);
  PointSampleNv21(f.y(), f.vu(), 1920, 4, work.data(), 480, 270);
  EXPECT_EQ(work[7 * 480 + 5], f.y()[28 * 1920 + 20]);
  const uint8_t* chroma = work.data() + 480 * 270;
  EXPECT_EQ(chroma[3 * 480 + 2 * 5], f.vu()[12 * 1920 + 40]);
  EXPECT_EQ(chroma[3 * 480 + 2 * 5 + 1], f.vu()[12 * 1920 + 41]);
}

}  // namespace
}  // namespace plovix_bench
