#include "tracking/mean_shift.h"

#include "support/test_support.h"

namespace {

using Box = std::array<int, 4>;
using plovix_test::Edges;
using plovix_test::Weights;

TEST(MeanShift, FollowsTheWeights) {
  Weights ramp(100, 100);
  for (size_t i = 0; i < ramp.px.size(); ++i) ramp.px[i] = static_cast<uint8_t>(i % 100);
  const struct {
    Weights img;
    OT_RECT track;
    Box expected;
    int sum;
  } cases[] = {
      {Weights(100, 100), {30, 40, 60, 60}, {30, 40, 60, 60}, 0},  // no weight: converged at once
      // Odd sizes: the result is built from halves.
      {Weights(100, 100).Fill(45, 45, 50, 50, 255), {40, 40, 55, 55}, {40, 40, 54, 54}, 25 * 255},
      // The window clipped to 10 columns creeps onto column 4 and keeps its clipped width; the
      // result has full size, shifted into the image.
      {Weights(100, 100).Fill(0, 45, 5, 55, 255), {-10, 40, 10, 60}, {0, 40, 20, 60}, 10 * 255},
      {Weights(30, 100).Fill(0, 0, 30, 100, 9), {0, 40, 40, 60}, {-10, 40, 30, 60}, 3600},  // wider than the image
      // Weights rising with x move the window one pixel per centroid: 22 of them, 40 -> 62.
      {ramp, {30, 30, 51, 51}, {52, 30, 72, 50}, 26901},
  };
  for (auto c : cases) {
    CMeanShiftTracker t = {};
    SetTrackRect_Obj(&t, c.track);
    int sum = -1;
    EXPECT_EQ(Edges(MeanShift_Obj(&t, c.img.px.data(), c.img.w, c.img.h, &sum, 1)), c.expected);
    EXPECT_EQ(sum, c.sum);
  }
}

using WideSearch = plovix_test::TrackerTest;

TEST_F(WideSearch, FixedRegionWithTenPixelMinimumAndIterationCap) {
  obj_W = obj_H = 10;
  const struct {
    Weights img;
    int x0;
    Box expected;
    int sum;
  } cases[] = {
      // 64 x 64, region (20, 20, 36, 36): a strong column pulls the window against an edge; a weak
      // column just inside the 10-pixel minimum adds to the sum only if the minimum holds.
      {Weights(64, 64).Fill(35, 20, 36, 36, 255).Fill(26, 20, 27, 36, 1), 20, {30, 23, 40, 33}, 16 * 256},
      {Weights(64, 64).Fill(20, 20, 21, 36, 255).Fill(29, 20, 30, 36, 1), 20, {15, 23, 25, 33}, 16 * 256},
      // Region (20, 20, 60, 60): the first centroid (41, 41) is within one pixel, so it stops.
      {Weights(100, 100).Fill(20, 20, 60, 60, 50).Fill(50, 50, 60, 60, 108), 20, {36, 36, 46, 46}, 85800},
      // 20 x 20: qW = qH = -6, the region runs backwards from 16 and the window jumps between
      // (16, 16, 26, 26) and (-6, -6, 4, 4); the 22nd centroid is the second one's. With weights
      // both windows read past the image (zeros) and negative columns wrap the unsigned sums.
      {Weights(20, 20), 16, {0, 0, 4, 4}, 0},
      {Weights(20, 20).Fill(0, 0, 20, 20, 255), 16, {0, 0, -1641697991, 7}, 34 * 255},
  };
  for (auto c : cases) {
    int sum = -1;
    EXPECT_EQ(Edges(D_MeanShift_Obj(nullptr, c.img.px.data(), c.img.w, c.img.h, c.x0, c.x0, &sum, 1)), c.expected);
    EXPECT_EQ(sum, c.sum);
  }
}

}  // namespace
