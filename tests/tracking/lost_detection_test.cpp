#include "tracking/lost_detection.h"

#include <limits>

#include "support/test_support.h"

namespace {

class LostDetection : public plovix_test::TrackerTest {
 protected:
  // Fed means: weak below density 5 and fill 4 (0.8f * 5); a candidate from density 25 and
  // fill 20 (0.8f * 25).
  void SetUp() override {
    TrackerTest::SetUp();
    t_.fAvgDensity = 100.0f;
    t_.fAvgFillRate = 80.0f;
    t_.fFillPerDensity = 0.8f;
    t_.nInitDensity = 90;
    t_.nInitFillRate = 70;
  }
  void Frames(int n, int density, int fill, int quality = 100) {
    t_.nDensity = density;
    t_.nFillRate = fill;
    for (int i = 0; i < n; ++i) CheckLostObject_Obj(&t_, nullptr, 0, 0, quality);
  }
  CMeanShiftTracker t_ = {};
};

TEST_F(LostDetection, WeakFrameThresholdsFollowTheMeans) {
  const float inf = std::numeric_limits<float>::infinity();
  for (auto [avgDensity, ratio, initDensity, density, fill, weak] : {
           std::tuple{100.0f, 0.8f, 90, 4, 3, 1}, {100.0f, 0.8f, 90, 4, 4, 0}, {100.0f, 0.8f, 90, 5, 0, 0},
           {4.0f, 0.8f, 90, 2, 1, 1},   {4.0f, 0.8f, 90, 3, 0, 0},  // d = trunc(4 * 0.75) = 3, f = 2
           {100.0f, 0.8f, 0, 4, 3, 1},  // no initial density: d = 0, so 5, and f = 4
           {0.0f, inf, 40, 4, 100, 1},  // inf * 0 is NaN (0), then inf * 5 saturates to INT_MAX
       }) {
    t_.fAvgDensity = avgDensity;
    t_.fFillPerDensity = ratio;
    t_.nInitDensity = initDensity;
    t_.nDensity = density;
    t_.nFillRate = fill;
    EXPECT_EQ(CheckLostTracking_Obj_AT(&t_, 0), weak) << avgDensity << " " << density << " " << fill;
  }
  CMeanShiftTracker fresh = {};  // right after selection f = 0, and no fill rate is below it
  EXPECT_EQ(CheckLostTracking_Obj_AT(&fresh, 0), 0);
}

TEST_F(LostDetection, FiveWeakFramesInARowSwitchToLost) {
  Frames(4, 0, 0);
  Frames(1, 50, 50);
  Frames(4, 0, 0);
  EXPECT_EQ(std::tuple(t_.nState, t_.nLostCount), std::tuple(0, 4));
  t_.nFoundCount = 3;
  Frames(1, 0, 0);
  EXPECT_EQ(std::tuple(t_.nState, t_.nLostCount, t_.nFoundCount), std::tuple(1, 5, 0));
}

TEST_F(LostDetection, FiveValidCandidatesInARowRecover) {
  t_.nState = 1;
  t_.nLostCount = 5;
  Frames(4, 25, 20, 15);
  Frames(1, 25, 20, 14);  // good measurements, score too low
  Frames(4, 30, 30);
  EXPECT_EQ(std::tuple(t_.nState, t_.nLostCount, t_.nFoundCount, Valid_cnt), std::tuple(1, 6, 4, 9));
  Frames(1, 30, 30);
  EXPECT_EQ(std::tuple(t_.nState, t_.nLostCount, t_.nFoundCount, Valid_cnt), std::tuple(0, 0, 0, 0));
}

TEST_F(LostDetection, HundredthLostFrameFlagsAndTurnsTheTestStrict) {
  t_.nState = 1;
  Valid_cnt = 98;
  Frames(1, 0, 0);
  EXPECT_FALSE(Valid_flg);
  Frames(1, 25, 20, 15);  // judged with Valid_cnt = 99: thresholds and score
  EXPECT_EQ(std::tuple(Valid_cnt, Valid_flg, t_.nFoundCount), std::tuple(100, true, 1));
  Frames(1, 25, 20);  // strict from now on ...
  EXPECT_EQ(t_.nFoundCount, 0);
  Frames(1, 26, 21, -100);  // ... and without score
  EXPECT_EQ(std::tuple(Valid_cnt, t_.nFoundCount), std::tuple(102, 1));
}

}  // namespace
