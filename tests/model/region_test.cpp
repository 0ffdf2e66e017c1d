#include "model/region.h"

#include "support/test_support.h"

namespace {

using plovix_test::Edges;

TEST(Region, FilledRatesAndPixelsCountStrictlyAboveTheThreshold) {
  std::vector<uint8_t> img = {10, 200, 255, 0, 50, 50};
  for (auto [rect, threshold, rate, pixels] :
       {std::tuple{OT_RECT{0, 0, 3, 2}, 255, 0, 0}, {OT_RECT{0, 0, 3, 2}, -1, 100, 6},
        {OT_RECT{0, 0, 3, 1}, 200, 33, 1}, {OT_RECT{0, 0, 3, 2}, 49, 66, 4},
        {OT_RECT{2, 0, 2, 2}, -1, 0, 0}, {OT_RECT{0, 1, 3, 1}, -1, 0, 0}}) {
    EXPECT_EQ(GetFilledRates_Obj(img.data(), 3, 2, rect, threshold), rate) << threshold;
    EXPECT_EQ(GetFilledPixels_Obj(img.data(), 3, 2, rect, threshold), pixels) << threshold;
  }
}

TEST(Region, RectSumsReadByLinearIndexAndCountOutsidePixelsAsZero) {
  std::vector<uint8_t> img(12);  // 4 x 3, weight = linear index + 1
  for (int i = 0; i < 12; ++i) img[i] = static_cast<uint8_t>(i + 1);
  for (auto [rect, sum, above5] : {std::tuple{OT_RECT{0, -2, 4, 5}, int64_t{78}, 7},
                                   {OT_RECT{1, 1, 3, 2}, 6 + 7, 2},
                                   {OT_RECT{3, 0, 5, 1}, 4 + 5, 0},  // column 4 is the next row's first
                                   {OT_RECT{-1, 1, 2, 2}, 4 + 5 + 6, 1},
                                   {OT_RECT{2, -1, 8, 0}, 1 + 2 + 3 + 4, 0},  // before the start: zeros
                                   {OT_RECT{2, 2, 6, 3}, 11 + 12, 2},
                                   {OT_RECT{2, 1, 2, 3}, 0, 0}}) {
    EXPECT_EQ(SumWeightsInRect(img.data(), 4, 3, rect), sum) << ::testing::PrintToString(Edges(rect));
    EXPECT_EQ(CountWeightsAbove(img.data(), 4, 3, rect, 5), above5) << ::testing::PrintToString(Edges(rect));
  }
}

// Long runs are summed in chunks; every run length, a first column before the image (the x moment
// wraps) and every kind of threshold must give what summing pixel by pixel gives.
TEST(Region, RunSumsEqualPixelByPixelSumsForEveryRunLength) {
  const int w = 100, h = 6;
  std::vector<uint8_t> img(w * h);
  uint32_t s = 3;
  for (auto& v : img) {
    s = s * 1664525u + 1013904223u;
    v = static_cast<uint8_t>(s >> 24);
  }
  const int thresholds[] = {-1, 0, 127, 254, 255};
  for (int left : {-37, 0, 5}) {
    for (int width = 1; width <= 100; ++width) {
      const OT_RECT r{left, 1, left + width, 4};
      uint64_t sum = 0, sumX = 0, sumY = 0;
      int32_t above[5] = {0, 0, 0, 0, 0};
      for (int y = r.top; y < r.bottom; ++y) {
        for (int x = r.left; x < r.right; ++x) {
          const int64_t i = int64_t{y} * w + x;
          const uint8_t v = (i >= 0 && i < w * h) ? img[i] : 0;
          sum += v;
          sumX += static_cast<uint64_t>(int64_t{x}) * v;
          sumY += static_cast<uint64_t>(y) * v;
          for (int k = 0; k < 5; ++k) above[k] += v > thresholds[k] ? 1 : 0;
        }
      }
      SCOPED_TRACE(testing::Message() << "left " << left << ", width " << width);
      const WeightMoments m = MomentsInRect(img.data(), w, h, r);
      EXPECT_EQ(std::tuple(m.sum, m.sumX, m.sumY), std::tuple(sum, sumX, sumY));
      EXPECT_EQ(SumWeightsInRect(img.data(), w, h, r), static_cast<int64_t>(sum));
      for (int k = 0; k < 5; ++k) EXPECT_EQ(CountWeightsAbove(img.data(), w, h, r, thresholds[k]), above[k]);
    }
  }
}

TEST(Region, ClosedRectIsInclusiveAndTakesColumnsFirst) {
  std::vector<uint8_t> img(12 * 12, 0);
  EXPECT_EQ(Edges(GetClosedRect(img.data(), 1, 10, 2, 11, 12, 12)), (Edges({1, 2, 10, 11})));
  img[9 * 12 + 4] = 1;
  img[1 * 12 + 6] = 255;
  EXPECT_EQ(Edges(GetClosedRect(img.data(), 0, 12, 0, 12, 12, 12)), (Edges({4, 1, 6, 9})));
  EXPECT_EQ(Edges(GetClosedRect(img.data(), 5, 12, 0, 12, 12, 12)), (Edges({6, 1, 6, 1})));
}

TEST(Region, MoveNoOutofImageKeepsTheSize) {
  const OT_RECT cases[][2] = {{{-5, 2, 15, 12}, {0, 2, 20, 12}},   {{90, 0, 110, 10}, {80, 0, 100, 10}},
                              {{10, -3, 30, 7}, {10, 0, 30, 10}},  {{10, 95, 30, 105}, {10, 90, 30, 100}},
                              {{-10, -10, 120, 50}, {-30, 0, 100, 60}}};
  for (const auto& c : cases) EXPECT_EQ(Edges(MoveNoOutofImage_Obj(c[0], 100, 100)), Edges(c[1]));
}

TEST(Region, ValidRectangleHasInclusiveSizeBounds) {
  g_MIN_OBJ_SIZE = 20;
  g_MAX_OBJ_SIZE = 100;
  EXPECT_TRUE(ValidRectangle_Obj(200, 200, OT_RECT{0, 0, 20, 100}));
  EXPECT_TRUE(ValidRectangle_Obj(200, 200, OT_RECT{180, 100, 200, 200}));
  for (const OT_RECT& r : {OT_RECT{0, 0, 19, 50}, OT_RECT{0, 0, 101, 50}, OT_RECT{0, 0, 50, 19}, OT_RECT{-1, 0, 19, 50},
                           OT_RECT{190, 0, 210, 50}}) {
    EXPECT_FALSE(ValidRectangle_Obj(200, 200, r)) << ::testing::PrintToString(Edges(r));
  }
}

}  // namespace
