#include "picture.h"

#include "gtest/gtest.h"

namespace plovix_replay {
namespace {

TEST(Picture, PacksChromaRowsWidthBytesApartInTheFormatsOrder) {
  Picture p;
  ResizePicture(&p, 4, 4);
  for (uint8_t i = 0; i < 4; ++i) {
    p.u[i] = 100 + i;
    p.v[i] = 200 + i;
  }
  std::vector<uint8_t> luma, chroma;
  PackSemiPlanar(p, ChromaOrder::kVU, &luma, &chroma);
  EXPECT_EQ(luma.size(), 16u);
  EXPECT_EQ(chroma, (std::vector<uint8_t>{200, 100, 201, 101, 202, 102, 203, 103, 0, 0}));
  PackSemiPlanar(p, ChromaOrder::kUV, &luma, &chroma);
  EXPECT_EQ(chroma, (std::vector<uint8_t>{100, 200, 101, 201, 102, 202, 103, 203, 0, 0}));
}

TEST(Picture, OddHeightRepeatsTheLastChromaRowOfADump) {
  // 2 x 3: one chroma row in the dump, two in the picture.
  const uint8_t dump[] = {1, 2, 3, 4, 5, 6, 50, 60};
  Picture p;
  UnpackSemiPlanar(dump, 2, 3, ChromaOrder::kUV, &p);
  EXPECT_EQ(p.u, (std::vector<uint8_t>{50, 50}));
  EXPECT_EQ(p.v, (std::vector<uint8_t>{60, 60}));
}

}  // namespace
}  // namespace plovix_replay
