#include "image/point_array.h"

#include <gtest/gtest.h>

#include <vector>

#include "engine/tuning.h"

namespace {

using Ints = std::vector<int>;

Ints P(tagOT_POINT p) { return {p.x, p.y}; }
Ints R(OT_RECT r) { return {r.left, r.top, r.right, r.bottom}; }

class PointArray : public ::testing::Test {
 protected:
  void SetUp() override { CPointArray_Initialize(&arr_); }
  void TearDown() override { CPointArray_RemoveAll(&arr_); }
  tag_CPointArray arr_;
};

TEST_F(PointArray, FullPoolDropsPointsUntilOneIsTaken) {
  for (int i = 0; i < kPointPoolCapacity - 2; ++i) CPointArray_Add(&arr_, i, -i);
  int xs[] = {10, 11, 12};
  CPointArray_Add(&arr_, xs, 5, 3);
  CPointArray_Add(&arr_, 999, 999);
  EXPECT_EQ(arr_.count, kPointPoolCapacity);
  EXPECT_EQ(P(CPointArray_GetAt(&arr_, kPointPoolCapacity - 1)), (Ints{11, 5}));

  tag_CPointNode* freed = arr_.head;
  EXPECT_EQ(P(CPointArray_TakeFirst(&arr_)), (Ints{0, 0}));
  CPointArray_Add(&arr_, tagOT_POINT{7, 8});
  EXPECT_EQ(arr_.tail, freed);  // the node freed last is reused first
  for (int i = 1; i < kPointPoolCapacity - 2; ++i) CPointArray_TakeFirst(&arr_);
  EXPECT_EQ(P(CPointArray_TakeFirst(&arr_)), (Ints{10, 5}));
  EXPECT_EQ(P(CPointArray_TakeFirst(&arr_)), (Ints{11, 5}));
  EXPECT_EQ(P(CPointArray_TakeFirst(&arr_)), (Ints{7, 8}));
  EXPECT_EQ(P(CPointArray_TakeFirst(&arr_)), (Ints{-1, -1}));
  EXPECT_EQ(arr_.count, 0);
  EXPECT_EQ(P(CPointArray_GetAt(&arr_, 0)), (Ints{-1, -1}));
}

TEST_F(PointArray, AppendMovesPointsAndAnEmptySourceClearsTheTail) {
  tag_CPointArray* src = newCPointArray();
  CPointArray_Add(&arr_, 1, 1);
  CPointArray_Add(src, 2, 2);
  CPointArray_Add(src, 3, 3);
  CPointArray_Append(&arr_, src);
  EXPECT_EQ((Ints{arr_.count, src->count}), (Ints{3, 0}));
  EXPECT_EQ(P(CPointArray_GetAt(&arr_, 2)), (Ints{3, 3}));
  CPointArray_Append(&arr_, src);
  EXPECT_EQ(arr_.tail, nullptr);
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(P(CPointArray_TakeFirst(&arr_)), (Ints{i, i}));
  delCPointArray(src);
}

TEST(RectHelpers, IntersectionNeedsMoreThanAQuarterOfTheSmallerArea) {
  const OT_RECT a = {0, 0, 10, 10};
  const struct {
    OT_RECT b;
    int expected;
  } cases[] = {{{3, 3, 7, 7}, 1},     // 16 > 4
               {{5, 5, 15, 15}, 0},   // 25 > 25 fails
               {{4, 4, 15, 15}, 1},   // 36 > 25
               {{10, 0, 20, 10}, 0},  // touching: area 0
               {{11, 0, 20, 10}, 0}};
  for (const auto& c : cases) EXPECT_EQ(IsIntersection_Obj(a, c.b), c.expected) << c.b.left;
}

TEST(RectHelpers, ResizeBringsSidesIntoTheObjectSizeLimits) {
  g_MAX_OBJ_SIZE = 100;
  g_MIN_OBJ_SIZE = 20;
  EXPECT_EQ(R(ResizeValidRectSize(OT_RECT{0, 10, 301, 15})), (Ints{100, 2, 200, 22}));
  EXPECT_EQ(R(ResizeValidRectSize(OT_RECT{5, 5, 60, 105})), (Ints{5, 5, 60, 105}));
  g_MIN_OBJ_SIZE = 21;  // an odd limit gives a side of 20
  EXPECT_EQ(R(ResizeValidRectSize(OT_RECT{-9, 0, -5, 40})), (Ints{-17, 0, 3, 40}));
  g_MIN_OBJ_SIZE = 20;

  // Bounded around the centre, widened to the minimum, then evened outward.
  Ints e = {-80, 49, 71, 53};
  ResizeValidRectSize_ltrb(&e[0], &e[1], &e[2], &e[3], 11, 51);
  EXPECT_EQ(e, (Ints{-40, 40, 62, 62}));
  e = {3, 3, 9, 41};
  ResizeValidRectSize_ltrb(&e[0], &e[1], &e[2], &e[3], 7, 20);
  EXPECT_EQ(e, (Ints{-4, 2, 18, 42}));
}

}  // namespace
