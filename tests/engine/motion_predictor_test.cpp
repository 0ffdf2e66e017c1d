#include "engine/motion_predictor.h"

#include "support/test_support.h"

namespace {

using Vec = std::array<int, 6>;  // x, y, left, top, right, bottom

// A 40x30 box centred on (x, y), as the engine feeds it.
MotionVector BoxAt(int x, int y) { return {x, y, x - 20, y - 15, x + 20, y + 15}; }
Vec AsArray(const MotionVector& v) { return {v.x, v.y, v.left, v.top, v.right, v.bottom}; }

}  // namespace

TEST(MotionPredictor, KeepsTheCentreFourTimesThenLeadsByFiveAverageStepsOverTheLastTen) {
  MotionPredictor p;
  p.SetPredictorOptions(5, 10);
  MotionVector out;
  MotionVector moved = BoxAt(80, 40);
  p.GetMotion(&moved, &out);
  p.Reset();
  MotionVector first = {50, 1, 39, -10, 62, 11};  // odd sizes: a re-centred copy would differ
  EXPECT_EQ(0, p.GetMotion(&first, &out));
  EXPECT_EQ(AsArray(first), AsArray(out));
  for (int call = 2; call <= 4; ++call) {
    MotionVector in = {50 + 3 * call, 1, 5, -6, 26, 9};  // 21x15: half sizes 10 and 7
    EXPECT_EQ(0, p.GetMotion(&in, &out));
    EXPECT_EQ((Vec{in.x, 1, in.x - 10, -6, in.x + 10, 8}), AsArray(out)) << "call " << call;
  }
  // x: +12 over 4 steps, 5 ahead = +15; y: -1 over 4 steps, 5 ahead = -1.25, truncated to -1.
  MotionVector still = BoxAt(62, 0);
  EXPECT_EQ(1, p.GetMotion(&still, &out));
  EXPECT_EQ(AsArray(BoxAt(77, -1)), AsArray(out));
  for (int call = 6; call <= 11; ++call) p.GetMotion(&still, &out);
  EXPECT_EQ(68, out.x);  // call 11 still sees the first entry: 12 / 10 steps * 5 ahead
  p.GetMotion(&still, &out);
  EXPECT_EQ(65, out.x);  // call 12 starts from the second: 6 / 10 * 5
}

// At positions x = n * n on call n, a prediction from k earlier entries lies 5 * (2n - k) ahead, so
// the predicted x tells how many entries the history held.
TEST(MotionPredictor, HistoryHoldsAtMostMaxHistoryAndAtMostTenEntries) {
  const struct {
    int maxHistory, calls, result, x;
  } cases[] = {
      {0, 5, 0, 25},      // one entry kept: never predicts
      {3, 8, 0, 64},      // three: never predicts
      {4, 5, 1, 55},      // 25 + 5 * (10 - 4)
      {4, 8, 1, 124},     // 64 + 5 * (16 - 4)
      {10, 15, 1, 325},   // 225 + 5 * (30 - 10)
      {20, 15, 1, 325},   // a larger history is held to ten entries
  };
  for (const auto& c : cases) {
    MotionPredictor p;
    p.SetPredictorOptions(5, c.maxHistory);
    MotionVector out;
    int result = -1;
    for (int n = 1; n <= c.calls; ++n) {
      MotionVector in = BoxAt(n * n, 0);
      result = p.GetMotion(&in, &out);
    }
    EXPECT_EQ(c.result, result) << "maxHistory " << c.maxHistory;
    EXPECT_EQ(c.x, out.x) << "maxHistory " << c.maxHistory;
  }
}

// Each call adds one entry and drops at most one, so a full history stays full.
TEST(MotionPredictor, LoweringMaxHistoryDoesNotShortenAFullHistory) {
  MotionPredictor p;
  p.SetPredictorOptions(5, 10);
  MotionVector out;
  for (int n = 1; n <= 12; ++n) {
    MotionVector in = BoxAt(n * n, 0);
    p.GetMotion(&in, &out);
  }
  p.SetPredictorOptions(5, 4);
  for (int n = 13; n <= 14; ++n) {
    MotionVector in = BoxAt(n * n, 0);
    p.GetMotion(&in, &out);
    EXPECT_EQ(n * n + 5 * (2 * n - 10), out.x) << "call " << n;
  }
}
