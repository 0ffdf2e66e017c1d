#include "tracking/motion_events.h"

#include "support/test_support.h"

namespace {

using plovix_test::Edges;
using MotionEvents = plovix_test::TrackerTest;

OT_RECT Square20(int left, int top) { return OT_RECT{left, top, left + 20, top + 20}; }

// The three older slots hold (10, 10, 30, 30); dx and dy are left at 555 when not written.
TEST_F(MotionEvents, MoveCodesFollowTheAngleOfTheCentre) {
  for (auto [name, newest, code, dx, dy] : {
           std::tuple{"still", Square20(10, 10), 0, 555, 555},
           {"7 right is still", Square20(17, 10), 0, 555, 555},
           {"8 right", Square20(18, 10), 2, 8, 0},
           {"8 left", Square20(2, 10), 1, -8, 0},
           {"3 down is still", Square20(10, 13), 0, 555, 555},
           {"4 down", Square20(10, 14), 4, 0, 4},
           {"up-right", Square20(20, 0), 7, 10, -10},
           {"down-left", Square20(0, 20), 6, -10, 10},
           // With pi instead of 3.14 these two would fall into the neighbouring sector.
           {"steep up-left", Square20(9, 6), 3, -1, -4},
           {"steep down-right", Square20(11, 14), 4, 1, 4},
           // A long, slightly downward move to the right lands on exactly 360 degrees.
           {"360 degrees", Square20(70, 11), 0, 60, 1},
       }) {
    otDirM[0] = otDirM[1] = otDirM[2] = Square20(10, 10);
    otDirM[3] = newest;
    g_nDirMCount = 3;
    int gotX = 555, gotY = 555;
    EXPECT_EQ(ActionMotionEventMove(&gotX, &gotY), code) << name;
    EXPECT_EQ(std::pair(gotX, gotY), std::pair(dx, dy)) << name;
    EXPECT_EQ(Edges(otDirM[2]), Edges(newest)) << name;  // the window slid by one
    EXPECT_EQ(g_nDirMCount, 3);
  }
  // Only the three older slots are averaged: lefts 0, 0, 24 average 8.
  otDirM[0] = otDirM[1] = Square20(0, 10);
  otDirM[2] = Square20(24, 10);
  otDirM[3] = Square20(16, 10);
  int dx = 0, dy = 0;
  EXPECT_EQ(ActionMotionEventMove(&dx, &dy), 2);
  EXPECT_EQ(Edges(otDirM[1]), Edges(Square20(24, 10)));
}

// The two older slots hold (10, 10, 30, 30).
TEST_F(MotionEvents, SizeCodesCompareTheNewestWithTheWindowMean) {
  for (auto [name, newest, code] : {
           std::tuple{"same", OT_RECT{10, 10, 30, 30}, 0},
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
           // The mean width is taken edge by edge: 93 / 3 - 32 / 3 = 21, the new width, so only the
           // height counts (a mean of the widths, 61 / 3 = 20, would also call it wider).
           {"mean per edge", {12, 10, 33, 34}, 3},
       }) {
    otDirS[0] = otDirS[1] = OT_RECT{10, 10, 30, 30};
    otDirS[2] = newest;
    g_nDirSCount = 2;
    EXPECT_EQ(ActionMotionEventSize(), code) << name;
    EXPECT_EQ(Edges(otDirS[1]), Edges(newest)) << name;
    EXPECT_EQ(g_nDirSCount, 2);
  }
}

}  // namespace
