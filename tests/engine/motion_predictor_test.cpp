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
