#include "run_stats.h"

#include "gtest/gtest.h"

namespace plovix_replay {
namespace {

TEST(RunStats, PercentileIsNearestRank) {
  const std::vector<double> ten = {10, 1, 9, 2, 8, 3, 7, 4, 6, 5};
  EXPECT_EQ(Percentile(ten, 0.5), 5);
  EXPECT_EQ(Percentile(ten, 0.9), 9);
  EXPECT_EQ(Percentile(ten, 1.0), 10);
  EXPECT_EQ(Percentile({3}, 0.9), 3);
  EXPECT_EQ(Percentile({}, 0.5), 0);
}

// A 2000 x 1000 input, so one focus unit is one pixel across and half a pixel down.
FrameResult Result(long index, int ret, int state, int left, int right, int top, int bottom) {
  FrameResult r;
  r.index = index;
  r.ret = ret;
  r.record.nTrackState = state;
  r.record.nLeft = left;
  r.record.nRight = right;
  r.record.nTop = top;
  r.record.nBottom = bottom;
  r.width = 2000;
  r.height = 1000;
  return r;
}

TEST(RunStats, ScoresOnlyVisibleFramesAndCountsMissingBoxesAsMisses) {
  RunStats stats(2000, 1000);
  const Picture none;
  std::string error;
  // Box centre (1000, 500) with 200 x 100 pixel extent.
  stats.OnFrame(Result(0, 0, 2, -100, 100, -100, 100), none, &error);   // truth inside, 30 px off
  stats.OnFrame(Result(1, 0, 3, -100, 100, -100, 100), none, &error);   // truth outside, 400 px off
  stats.OnFrame(Result(2, 0, 1, 0, 0, 0, 0), none, &error);             // no box: a miss, no error
  stats.OnFrame(Result(3, 0, 2, -100, 100, -100, 100), none, &error);   // truth hidden: not scored
  stats.OnFrame(Result(4, -1, 2, -100, 100, -100, 100), none, &error);  // refused: no box
  const std::vector<TruthPoint> truth = {
      {1030, 500, true}, {1400, 500, true}, {1000, 500, true}, {0, 0, false}, {1000, 500, true}};
  const Accuracy a = stats.Score(truth);
  EXPECT_EQ(a.visibleFrames, 4);
  EXPECT_EQ(a.scoredFrames, 2);
  EXPECT_DOUBLE_EQ(a.meanError, 215.0);
  EXPECT_DOUBLE_EQ(a.p90Error, 400.0);
  EXPECT_EQ(a.containedFrames, 1);
  EXPECT_DOUBLE_EQ(a.containedShare, 0.25);

  const StateCounts c = stats.CountStates();
  EXPECT_EQ(c.tracking, 2);
  EXPECT_EQ(c.tempLost, 1);
  EXPECT_EQ(c.notTracking, 1);
  EXPECT_EQ(c.refused, 1);
}

TEST(RunStats, CentresAreInInputPixelsWhateverTheFedSize) {
  RunStats stats(1920, 1080);
  FrameResult r = Result(0, 0, 2, 0, 200, -500, 500);
  r.width = 640;  // fed scaled down
  r.height = 360;
  std::string error;
  stats.OnFrame(r, Picture(), &error);
  EXPECT_DOUBLE_EQ(stats.frames()[0].centreX, 1056.0);
  EXPECT_DOUBLE_EQ(stats.frames()[0].centreY, 540.0);
}

}  // namespace
}  // namespace plovix_replay
