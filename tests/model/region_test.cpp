#include "model/region.h"

#include <gtest/gtest.h>

#include <vector>

#include "engine/tuning.h"

namespace {

std::vector<int> V(OT_RECT r) { return {r.left, r.top, r.right, r.bottom}; }

TEST(Region, WeightCenterRoundsHalvesUpAndFallsBackToTheRectCentre) {
  std::vector<uint8_t> img(16 * 8, 0);
  int cx = 0, cy = 0;
  EXPECT_EQ(GetWeightCenter_Obj(img.data(), 16, 8, OT_RECT{-3, 1, 2, 6}, &cx, &cy), 0);
  EXPECT_EQ(std::vector<int>({cx, cy}), std::vector<int>({-1, 3}));  // arithmetic shift, not division
  img[3 * 16 + 7] = 200;
  EXPECT_EQ(GetWeightCenter_Obj(img.data(), 16, 8, OT_RECT{0, 0, 16, 8}, &cx, &cy), 200);
  EXPECT_EQ(std::vector<int>({cx, cy}), std::vector<int>({7, 3}));
  img[3 * 16 + 8] = 200;
  EXPECT_EQ(GetWeightCenter_Obj(img.data(), 16, 8, OT_RECT{0, 0, 16, 8}, &cx, &cy), 400);
  EXPECT_EQ(std::vector<int>({cx, cy}), std::vector<int>({8, 3}));
}

TEST(Region, FilledRatesAndPixelsCountStrictlyAboveTheThreshold) {
  std::vector<uint8_t> img = {10, 200, 255, 0, 50, 50};
  const struct {
    OT_RECT rect;
    int threshold, rate, pixels;
  } cases[] = {{{0, 0, 3, 2}, 255, 0, 0}, {{0, 0, 3, 2}, -1, 100, 6}, {{0, 0, 3, 1}, 200, 33, 1},
               {{0, 0, 3, 2}, 49, 66, 4}, {{2, 0, 2, 2}, -1, 0, 0},   {{0, 1, 3, 1}, -1, 0, 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(GetFilledRates_Obj(img.data(), 3, 2, c.rect, c.threshold), c.rate) << c.threshold;
    EXPECT_EQ(GetFilledPixels_Obj(img.data(), 3, 2, c.rect, c.threshold), c.pixels) << c.threshold;
  }
}

TEST(Region, RectSumsReadByLinearIndexAndCountOutsidePixelsAsZero) {
  std::vector<uint8_t> img(12);  // 4 x 3, weight = linear index + 1
  for (int i = 0; i < 12; ++i) img[i] = static_cast<uint8_t>(i + 1);
  const struct {
    OT_RECT rect;
    int64_t sum;
    int32_t above5;
  } cases[] = {{{0, 0, 4, 3}, 78, 7},     {{0, -2, 4, 5}, 78, 7},      {{1, 1, 3, 2}, 6 + 7, 2},
               {{3, 0, 5, 1}, 4 + 5, 0},  {{-1, 1, 2, 2}, 4 + 5 + 6, 1}, {{2, -1, 8, 0}, 1 + 2 + 3 + 4, 0},
               {{-2, -1, 2, 0}, 0, 0},    {{2, 2, 6, 3}, 11 + 12, 2},  {{2, 1, 2, 3}, 0, 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(SumWeightsInRect(img.data(), 4, 3, c.rect), c.sum) << ::testing::PrintToString(V(c.rect));
    EXPECT_EQ(CountWeightsAbove(img.data(), 4, 3, c.rect, 5), c.above5) << ::testing::PrintToString(V(c.rect));
  }
}

TEST(Region, ClosedRectIsInclusiveAndTakesColumnsFirst) {
  std::vector<uint8_t> img(12 * 12, 0);
  EXPECT_EQ(V(GetClosedRect(img.data(), 1, 10, 2, 11, 12, 12)), V({1, 2, 10, 11}));
  img[9 * 12 + 4] = 1;
  EXPECT_EQ(V(GetClosedRect(img.data(), 0, 12, 0, 12, 12, 12)), V({4, 9, 4, 9}));
  img[1 * 12 + 6] = 255;
  EXPECT_EQ(V(GetClosedRect(img.data(), 0, 12, 0, 12, 12, 12)), V({4, 1, 6, 9}));
  EXPECT_EQ(V(GetClosedRect(img.data(), 5, 12, 0, 12, 12, 12)), V({6, 1, 6, 1}));
}

TEST(Region, MoveNoOutofImageKeepsTheSize) {
  const OT_RECT cases[][2] = {{{-5, 2, 15, 12}, {0, 2, 20, 12}},   {{90, 0, 110, 10}, {80, 0, 100, 10}},
                              {{10, -3, 30, 7}, {10, 0, 30, 10}},  {{10, 95, 30, 105}, {10, 90, 30, 100}},
                              {{-10, -10, 120, 50}, {-30, 0, 100, 60}}};
  for (const auto& c : cases) EXPECT_EQ(V(MoveNoOutofImage_Obj(c[0], 100, 100)), V(c[1]));
}

TEST(Region, ValidRectangleHasInclusiveSizeBounds) {
  ASSERT_EQ(std::vector<int>({g_MIN_OBJ_SIZE, g_MAX_OBJ_SIZE}), std::vector<int>({20, 100}));
  const OT_RECT valid[] = {{0, 0, 20, 100}, {180, 100, 200, 200}};
  const OT_RECT invalid[] = {{0, 0, 19, 50}, {0, 0, 101, 50}, {0, 0, 50, 19}, {-1, 0, 19, 50}, {190, 0, 210, 50}};
  for (const OT_RECT& r : valid) EXPECT_TRUE(ValidRectangle_Obj(200, 200, r)) << ::testing::PrintToString(V(r));
  for (const OT_RECT& r : invalid) EXPECT_FALSE(ValidRectangle_Obj(200, 200, r)) << ::testing::PrintToString(V(r));
}

}  // namespace
