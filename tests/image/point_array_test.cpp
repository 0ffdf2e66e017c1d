#include "image/point_array.h"

#include "support/test_support.h"

namespace {

using Ints = std::vector<int>;

Ints P(tagOT_POINT p) { return {p.x, p.y}; }

TEST(PointArray, FullPoolDropsPointsUntilOneIsTaken) {
  tag_CPointArray arr;
  CPointArray_Initialize(&arr);
  for (int i = 0; i < kPointPoolCapacity - 2; ++i) CPointArray_Add(&arr, i, -i);
  int xs[] = {10, 11, 12};
  CPointArray_Add(&arr, xs, 5, 3);
  CPointArray_Add(&arr, 999, 999);
  EXPECT_EQ(arr.count, kPointPoolCapacity);
  EXPECT_EQ(P(CPointArray_GetAt(&arr, kPointPoolCapacity - 1)), (Ints{11, 5}));
  tag_CPointNode* freed = arr.head;
  EXPECT_EQ(P(CPointArray_TakeFirst(&arr)), (Ints{0, 0}));
  CPointArray_Add(&arr, tagOT_POINT{7, 8});
  EXPECT_EQ(arr.tail, freed);  // the node freed last is reused first
  for (int i = 1; i < kPointPoolCapacity - 2; ++i) CPointArray_TakeFirst(&arr);
  for (Ints want : {Ints{10, 5}, {11, 5}, {7, 8}, {-1, -1}}) EXPECT_EQ(P(CPointArray_TakeFirst(&arr)), want);
  EXPECT_EQ(arr.count, 0);
  CPointArray_RemoveAll(&arr);
}

TEST(RectHelpers, IntersectionNeedsMoreThanAQuarterOfTheSmallerArea) {
  for (auto [b, expected] : {std::pair{OT_RECT{3, 3, 7, 7}, 1},  // 16 > 4
                             {OT_RECT{5, 5, 15, 15}, 0},         // 25 > 25 fails
                             {OT_RECT{4, 4, 15, 15}, 1},         // 36 > 25
                             {OT_RECT{10, 0, 20, 10}, 0}}) {     // touching: area 0
    EXPECT_EQ(IsIntersection_Obj(OT_RECT{0, 0, 10, 10}, b), expected) << b.left;
  }
}

}  // namespace
