#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <tuple>

#include "support/cache_size.h"
#include "support/frame_set.h"

namespace plovix_bench {
namespace {

TEST(CacheSize, ParsesSysfsSizes) {
  const std::tuple<std::string, size_t> cases[] = {
      {"32768K", size_t{32} << 20}, {"2M", size_t{2} << 20}, {"1G", size_t{1} << 30}, {"512", 512},
      {"", 0},                      {"K", 0},                {"12KB", 0},            {"x1K", 0},
  };
  for (const auto& [text, bytes] : cases) EXPECT_EQ(ParseCacheSize(text), bytes) << text;
}

TEST(CacheSize, FramesTogetherHoldTwiceTheCache) {
  constexpr size_t kCache = size_t{32} << 20;
  const std::tuple<size_t, int> cases[] = {
      {640 * 480 * 3 / 2, 146},  // 145.6 rounded up
      {size_t{1} << 20, 64},
      {(size_t{1} << 20) - 1, 65},
      {1280 * 720 * 3 / 2, 60},  // 48.5, but a lap is never shorter than 60 frames
      {1920 * 1080 * 3 / 2, 60},
      {0, 60},
  };
  for (const auto& [frameBytes, frames] : cases) {
    EXPECT_EQ(FramesToOutgrowCache(frameBytes, kCache), frames) << frameBytes;
  }
}

TEST(Scene, TouchPositionsInFocusUnits) {
  const std::tuple<double, int, int> cases[] = {
      {0.0, 1920, -1000}, {960.0, 1920, 0}, {1920.0, 1920, 1000}, {480.0, 1920, -500}, {270.0, 1080, -500},
  };
  for (const auto& [pixel, size, focus] : cases) EXPECT_EQ(FocusUnits(pixel, size), focus) << pixel;
}

TEST(Scene, DiscCirclesAtConstantSpeedAndTheLapCloses) {
  const Scene scene(1920, 1080, 60);
  const Disc first = scene.DiscAt(0);
  const Disc again = scene.DiscAt(60);
  EXPECT_EQ(first.x, again.x);
  EXPECT_EQ(first.y, again.y);
  EXPECT_EQ(first.r, 60.0);
  for (int i = 0; i < 60; ++i) {
    const Disc a = scene.DiscAt(i);
    const Disc b = scene.DiscAt(i + 1);
    // A chord of the lap: just under the 12 pixels a frame along the circle.
    EXPECT_NEAR(std::hypot(b.x - a.x, b.y - a.y), 11.99, 0.01) << i;
  }
}

TEST(Scene, LongLapsStayInsideTheFrame) {
  const Scene scene(640, 480, 1000);
  for (int i = 0; i < 1000; i += 7) {
    const Disc d = scene.DiscAt(i);
    ASSERT_GE(d.x - d.r, 0.0) << i;
    ASSERT_LE(d.x + d.r, 640.0) << i;
    ASSERT_GE(d.y - d.r, 0.0) << i;
    ASSERT_LE(d.y + d.r, 480.0) << i;
  }
}

int DiscPairs(const Nv21Frame& f) {
  const size_t bytes = static_cast<size_t>(f.width) * (f.height / 2);
  int n = 0;
  for (size_t k = 0; k + 1 < bytes; k += 2) {
    n += (f.vu()[k] == kDiscV && f.vu()[k + 1] == kDiscU) ? 1 : 0;
  }
  return n;
}

TEST(Scene, MovingFramesShowTheDiscAndHiddenFramesDoNot) {
  const FrameSet frames(kHd, 4, true);
  ASSERT_EQ(frames.count(), 4);
  for (int i = 0; i < 4; ++i) {
    const Nv21Frame& f = frames.Moving(i);
    const Disc d = frames.scene().DiscAt(i);
    const int cx = static_cast<int>(d.x) & ~1;
    const int cy = static_cast<int>(d.y) & ~1;
    EXPECT_NEAR(f.y()[cy * f.width + cx], kDiscY, 5);  // noise, and a little shading and pattern
    EXPECT_EQ(f.vu()[(cy / 2) * f.width + cx], kDiscV);
    EXPECT_EQ(f.vu()[(cy / 2) * f.width + cx + 1], kDiscU);
    // One chroma pair per 2x2 block of the disc: about pi r^2 / 4 of them.
    EXPECT_NEAR(DiscPairs(f), 3.14159 * d.r * d.r / 4, 0.05 * d.r * d.r) << i;
    EXPECT_EQ(DiscPairs(frames.Hidden(i)), 0) << i;
  }
}

TEST(Scene, EveryRowDiffersFromFrameToFrame) {
  const FrameSet frames(kVga, 3, true);
  const Nv21Frame* all[] = {&frames.Moving(0), &frames.Moving(1), &frames.Hidden(0), &frames.Hidden(1)};
  for (int a = 0; a < 4; ++a) {
    for (int b = a + 1; b < 4; ++b) {
      for (int row = 0; row < 480; ++row) {
        ASSERT_NE(0, std::memcmp(all[a]->y() + row * 640, all[b]->y() + row * 640, 640)) << a << b << row;
      }
    }
  }
}

}  // namespace
}  // namespace plovix_bench
