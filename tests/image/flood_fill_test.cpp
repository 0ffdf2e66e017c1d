#include "image/flood_fill.h"

#include <algorithm>

#include "support/test_support.h"

namespace {

using plovix_test::Frame;
using plovix_test::MakeUniformFrame;
using plovix_test::PaintRect;

// A fill state over a copy of the frame, with a zeroed mask of the same size.
struct FillState {
  explicit FillState(Frame& f) {
    SetOriginalImageYCC420(&ff, f.y.data(), f.uv.data(), f.width, f.height, f.width);
    SetMaskDibYCC420(&ff, nullptr);
  }
  ~FillState() {
    CDibY_delCDibY(ff.mask);
    CDibYCC420_delCDibYCC420(ff.image420);
  }
  void Fill(int x, int y, int threshold, bool invert = false) {
    CFFColor_FloodFillYCC420(&ff, tagOT_POINT{x, y}, threshold, invert);
  }
  uint8_t& Mask(int x, int y) { return ff.mask->pixels[y * ff.mask->width + x]; }
  // Mask bytes equal to v, in one row or (row < 0) in the whole mask; the mask rows are packed.
  int Count(uint8_t v, int row = -1) {
    const uint8_t* p = ff.mask->pixels + (row < 0 ? 0 : row * ff.mask->width);
    return static_cast<int>(std::count(p, p + ff.mask->width * (row < 0 ? ff.mask->height : 1), v));
  }
  tag_CFloodFill ff{};
};

// Pivot (100, 128, 128): (110, 120, 135) is at distance 25, (111, 120, 135) at 26.
TEST(FloodFill, ThresholdIsInclusiveAndSpreadsToTheFarCorner) {
  Frame f = MakeUniformFrame(40, 30, 100, 128, 128);
  PaintRect(&f, 10, 10, 12, 12, 110, 120, 135);
  PaintRect(&f, 20, 10, 22, 12, 111, 120, 135);
  FillState s(f);
  s.Fill(39, 29, 25);
  EXPECT_EQ((std::vector<int>{s.Mask(11, 11), s.Mask(21, 11), s.Count(255)}), (std::vector<int>{255, 0, 40 * 30 - 4}));
  s.Fill(0, 0, 100);  // a seed on a marked pixel or outside the image does nothing
  s.Fill(-1, 10, 100);
  EXPECT_EQ(s.Count(255), 40 * 30 - 4);
}

// 7x5 with two chroma rows of 7 bytes: the last row's chroma lies past the plane and reads as
// zero, and so does the Cr of column 6 in chroma row 1 (in row 0 it is row 1's first byte).
TEST(FloodFill, OddSizesReadZeroChromaPastThePlane) {
  Frame f = MakeUniformFrame(7, 5, 90, 128, 128);
  f.uv.assign(14, 128);
  FillState bottom(f), top(f);
  bottom.Fill(0, 4, 0);
  top.Fill(0, 0, 0);
  EXPECT_EQ((std::vector<int>{bottom.Count(255, 4), bottom.Count(255), top.Count(255), top.Mask(6, 1), top.Mask(6, 2)}),
            (std::vector<int>{7, 7, 26, 255, 0}));
}

// Runs pass over any mask value but 255; neighbour rows are queued only where the mask is exactly 0.
TEST(FloodFill, NeighbourRowsNeedAZeroMask) {
  Frame f = MakeUniformFrame(12, 4, 80, 128, 128);
  FillState s(f);
  for (int x = 0; x < 12; ++x) s.Mask(x, 2) = 1;
  for (int x = 4; x < 12; ++x) s.Mask(x, 0) = 1;
  s.Fill(0, 0, 0);
  EXPECT_EQ(s.Count(255, 0) + s.Count(255, 1), 24);
  EXPECT_EQ(s.Count(1, 2) + s.Count(0, 3), 24);
}

// A seed in row 1: its run queues row 0 first; past 500 points the pool is exhausted before row 2
// gets any, so rows 2 and 3 are never reached.
TEST(FloodFill, SurplusQueuedPointsAreDropped) {
  for (int width : {400, 600}) {
    Frame f = MakeUniformFrame(width, 4, 80, 128, 128);
    FillState s(f);
    s.Fill(0, 1, 0);
    EXPECT_EQ(s.Count(255, 0), width);
    EXPECT_EQ(s.Count(255, 3), width == 400 ? width : 0) << width;
  }
}

// With invert the fill spreads through marked pixels and clears them; the other square stays.
TEST(FloodFill, InvertClearsTheSeedsConnectedSquare) {
  Frame f = MakeUniformFrame(20, 12, 80, 128, 128);
  FillState s(f);
  for (int y = 2; y < 6; ++y) {
    for (int x = 2; x < 6; ++x) s.Mask(x, y) = s.Mask(x + 10, y + 4) = 255;
  }
  s.Fill(3, 3, 0, true);
  EXPECT_EQ((std::vector<int>{s.Mask(3, 3), s.Mask(13, 7), s.Count(255)}), (std::vector<int>{0, 255, 16}));
}

}  // namespace
