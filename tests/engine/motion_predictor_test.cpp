#include "engine/motion_predictor.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using Vec = std::array<int, 6>;  // x, y, left, top, right, bottom

// A 40x30 box centred on (x, y), as the engine feeds it.
MotionVector BoxAt(int x, int y) { return {x, y, x - 20, y - 15, x + 20, y + 15}; }
Vec AsArray(const MotionVector& v) { return {v.x, v.y, v.left, v.top, v.right, v.bottom}; }

}  // namespace

TEST(MotionPredictor, FirstFourCallsKeepTheCentre) {
  MotionPredictor p;
  p.SetPredictorOptions(5, 10);
  MotionVector out;
  MotionVector moved = BoxAt(80, 40);
  p.GetMotion(&moved, &out);
  p.Reset();
  MotionVector first = {50, 40, 39, 29, 62, 50};  // odd sizes: a re-centred copy would differ
  EXPECT_EQ(0, p.GetMotion(&first, &out));
  EXPECT_EQ(AsArray(first), AsArray(out));
  for (int call = 2; call <= 4; ++call) {
    MotionVector in = {10 + 3 * call, 20, 5, 12, 26, 27};  // 21x15: half sizes 10 and 7
    EXPECT_EQ(0, p.GetMotion(&in, &out));
    EXPECT_EQ((Vec{in.x, 20, in.x - 10, 13, in.x + 10, 27}), AsArray(out)) << "call " << call;
  }
}

TEST(MotionPredictor, FromTheFifthCallLeadsByFiveAverageStepsTruncated) {
  MotionPredictor p;
  p.SetPredictorOptions(5, 10);
  MotionVector out;
  const int ys[] = {1, 1, 1, 1, 0};  // y: -1 over 4 steps puts it at -1.25, truncated to -1
  int result = 0;
  for (int call = 1; call <= 5; ++call) {
    MotionVector in = BoxAt(100 + 2 * call, ys[call - 1]);
    result = p.GetMotion(&in, &out);
  }
  EXPECT_EQ(1, result);
  EXPECT_EQ(AsArray(BoxAt(110 + 10, -1)), AsArray(out));
}

TEST(MotionPredictor, AveragesOverTheLastTenEntriesOnly) {
  MotionPredictor p;
  p.SetPredictorOptions(5, 10);
  MotionVector out;
  MotionVector start = BoxAt(0, 0);
  MotionVector still = BoxAt(100, 0);
  p.GetMotion(&start, &out);
  for (int call = 2; call <= 11; ++call) p.GetMotion(&still, &out);
  EXPECT_EQ(150, out.x);  // call 11 still sees the start: 100 / 10 steps * 5 ahead
  p.GetMotion(&still, &out);
  EXPECT_EQ(100, out.x);  // call 12: the start has been dropped
}
