#include "picture.h"

#include "gtest/gtest.h"

namespace plovix_replay {
namespace {

Picture Numbered(int w, int h) {
  Picture p;
  ResizePicture(&p, w, h);
  for (size_t i = 0; i < p.y.size(); ++i) p.y[i] = static_cast<uint8_t>(i);
  for (size_t i = 0; i < p.u.size(); ++i) {
    p.u[i] = static_cast<uint8_t>(100 + i);
    p.v[i] = static_cast<uint8_t>(200 + i);
  }
  return p;
}

TEST(Picture, PacksChromaRowsWidthBytesApartInTheFormatsOrder) {
  const Picture p = Numbered(4, 4);
  std::vector<uint8_t> luma, chroma;
  PackSemiPlanar(p, ChromaOrder::kVU, &luma, &chroma);
  EXPECT_EQ(luma, p.y);
  EXPECT_EQ(chroma, (std::vector<uint8_t>{200, 100, 201, 101, 202, 102, 203, 103, 0, 0}));
  PackSemiPlanar(p, ChromaOrder::kUV, &luma, &chroma);
  EXPECT_EQ(chroma, (std::vector<uint8_t>{100, 200, 101, 201, 102, 202, 103, 203, 0, 0}));
}

TEST(Picture, SemiPlanarRoundTripIsExactForEvenSizes) {
  for (ChromaOrder order : {ChromaOrder::kVU, ChromaOrder::kUV}) {
    const Picture p = Numbered(6, 4);
    std::vector<uint8_t> luma, chroma;
    PackSemiPlanar(p, order, &luma, &chroma);
    std::vector<uint8_t> dump = luma;
    dump.insert(dump.end(), chroma.begin(), chroma.end() - 2);
    ASSERT_EQ(dump.size(), SemiPlanarFrameBytes(6, 4));
    Picture back;
    UnpackSemiPlanar(dump.data(), 6, 4, order, &back);
    EXPECT_EQ(back.y, p.y);
    EXPECT_EQ(back.u, p.u);
    EXPECT_EQ(back.v, p.v);
  }
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
