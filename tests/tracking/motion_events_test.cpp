#include "tracking/motion_events.h"

#include <gtest/gtest.h>

#include "tracking/tracker_state.h"

namespace {

bool SameRect(const OT_RECT& a, const OT_RECT& b) {
  return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

OT_RECT Square20(int left, int top) { return OT_RECT{left, top, left + 20, top + 20}; }

class MotionEvents : public ::testing::Test {
 protected:
  void SetUp() override { g_nDirMCount = g_nDirSCount = 0; }
  void TearDown() override { SetUp(); }
};

// Past full, the size window answers 0 where the movement window answers 1.
TEST_F(MotionEvents, AppendReportsAFullWindow) {
  const struct {
    bool size;
    int countBefore, result, countAfter;
    bool stored;
  } cases[] = {
      {false, 0, 0, 1, true}, {false, 2, 0, 3, true}, {false, 3, 1, 3, true}, {false, 4, 1, 4, false},
      {true, 0, 0, 1, true},  {true, 1, 0, 2, true},  {true, 2, 1, 2, true},  {true, 3, 0, 3, false},
  };
  const OT_RECT r{1, 2, 3, 4};
  for (const auto& c : cases) {
    int& count = c.size ? g_nDirSCount : g_nDirMCount;
    OT_RECT* slots = c.size ? otDirS : otDirM;
    const int capacity = c.size ? kSizeWindowSlots : kMoveWindowSlots;
    if (c.countBefore < capacity) slots[c.countBefore] = OT_RECT{};
    count = c.countBefore;
    EXPECT_EQ(c.size ? ActionMotionEventS(r) : ActionMotionEventM(r), c.result) << c.size << c.countBefore;
    EXPECT_EQ(count, c.countAfter) << c.size << c.countBefore;
    if (c.countBefore < capacity) {
      EXPECT_EQ(SameRect(slots[c.countBefore], r), c.stored) << c.size << c.countBefore;
    }
  }
}

TEST_F(MotionEvents, MoveCodesFollowTheAngleOfTheCentre) {
  const OT_RECT base = Square20(10, 10);
  const struct {
    const char* name;
    OT_RECT old[3], newest;
    int code;
    bool written;
    int dx, dy;
  } cases[] = {
      {"still", {base, base, base}, base, 0, false, 0, 0},
      {"7 right is still", {base, base, base}, Square20(17, 10), 0, false, 0, 0},
      {"8 right", {base, base, base}, Square20(18, 10), 2, true, 8, 0},
      {"8 left", {base, base, base}, Square20(2, 10), 1, true, -8, 0},
      {"3 down is still", {base, base, base}, Square20(10, 13), 0, false, 0, 0},
      {"4 down", {base, base, base}, Square20(10, 14), 4, true, 0, 4},
      {"4 up", {base, base, base}, Square20(10, 6), 3, true, 0, -4},
      {"up-right", {base, base, base}, Square20(20, 0), 7, true, 10, -10},
      {"down-left", {base, base, base}, Square20(0, 20), 6, true, -10, 10},
      // With pi instead of 3.14 these two would fall into the neighbouring sector.
      {"steep up-left", {base, base, base}, Square20(9, 6), 3, true, -1, -4},
      {"steep down-right", {base, base, base}, Square20(11, 14), 4, true, 1, 4},
      // A long, slightly downward move to the right lands on exactly 360 degrees.
      {"360 degrees", {base, base, base}, Square20(70, 11), 0, true, 60, 1},
      // Only the three older slots are averaged: lefts 0, 0, 24 average 8.
      {"mean of older slots", {Square20(0, 10), Square20(0, 10), Square20(24, 10)}, Square20(16, 10), 2, true, 8, 0},
  };
  for (const auto& c : cases) {
    for (int i = 0; i < 3; ++i) otDirM[i] = c.old[i];
    otDirM[3] = c.newest;
    g_nDirMCount = 3;
    int dx = 555, dy = 555;
    EXPECT_EQ(ActionMotionEventMove(&dx, &dy), c.code) << c.name;
    EXPECT_EQ(dx, c.written ? c.dx : 555) << c.name;
    EXPECT_EQ(dy, c.written ? c.dy : 555) << c.name;
    EXPECT_TRUE(SameRect(otDirM[1], c.old[2]) && SameRect(otDirM[2], c.newest)) << c.name;
    EXPECT_EQ(g_nDirMCount, 3);
  }
}

// The two older slots hold (10, 10, 30, 30).
TEST_F(MotionEvents, SizeCodesCompareTheNewestWithTheWindowMean) {
  const struct {
    const char* name;
    OT_RECT newest;
    int code;
  } cases[] = {
      {"same", {10, 10, 30, 30}, 0},
      {"2 wider is still", {10, 10, 33, 30}, 0},  // mean width 21 against 23
      {"wider", {10, 10, 36, 30}, 1},
      {"narrower", {10, 10, 24, 30}, 2},
      {"1 taller is still", {10, 10, 30, 31}, 0},  // mean height 20 against 21
      {"taller", {10, 10, 30, 34}, 3},
      {"shorter", {10, 10, 30, 26}, 4},
      {"wider and taller", {10, 10, 36, 34}, 5},
      {"wider and shorter", {10, 10, 36, 26}, 6},
      {"narrower and taller", {10, 10, 24, 34}, 7},
      {"narrower and shorter", {10, 10, 24, 26}, 8},
      // The mean width is taken edge by edge: 93 / 3 - 32 / 3 = 21, the new width, so only the height
      // counts (a mean of the widths, 61 / 3 = 20, would also call it wider).
      {"mean per edge", {12, 10, 33, 34}, 3},
  };
  for (const auto& c : cases) {
    otDirS[0] = otDirS[1] = OT_RECT{10, 10, 30, 30};
    otDirS[2] = c.newest;
    g_nDirSCount = 2;
    EXPECT_EQ(ActionMotionEventSize(), c.code) << c.name;
    EXPECT_TRUE(SameRect(otDirS[1], c.newest)) << c.name;
    EXPECT_EQ(g_nDirSCount, 2);
  }
}

}  // namespace
