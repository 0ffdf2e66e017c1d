#include "support/engine_session.h"

#include <gtest/gtest.h>

namespace plovix_bench {
namespace {

// A short lap is enough here; the benchmarks' long laps only keep the frames out of the cache.
constexpr int kLap = 12;

TEST(EngineSession, TouchOnTheDiscStartsTrackingItsBox) {
  const FrameSet frames(kHd, kLap, false);
  EngineSession s(&frames);
  ASSERT_TRUE(s.StartTracking());
  // After the touch and the warm-up the next moving frame is kWarmupFrames + 1 into the lap.
  const Disc d = frames.scene().DiscAt(kWarmupFrames + 1);
  ASSERT_TRUE(s.TrackFrames(1));
  const PlovixStruct& rec = s.record();
  EXPECT_LE(rec.nLeft, FocusUnits(d.x, 1280));
  EXPECT_GE(rec.nRight, FocusUnits(d.x, 1280));
  EXPECT_LE(rec.nTop, FocusUnits(d.y, 720));
  EXPECT_GE(rec.nBottom, FocusUnits(d.y, 720));
}

// The block-search case relies on this count: after the object is lost, exactly that many
// frames search the whole frame, and the frame after them is the one that gives up.
TEST(EngineSession, LossRunsThroughTheWholeFrameSearchesToTheEnd) {
  const FrameSet frames(kHd, kLap, true);
  EngineSession s(&frames);
  ASSERT_TRUE(s.StartTracking());
  ASSERT_TRUE(s.LoseObject());
  ASSERT_TRUE(s.SearchWholeFrame(kWholeFrameSearches));
  s.LoadHidden();
  EXPECT_EQ(s.Process(), PLOVIX_STATE_NOT_TRACKING);
}

TEST(EngineSession, ReportsStepsThatDoNotGoAsExpected) {
  const FrameSet frames(kHd, kLap, true);
  EngineSession s(&frames);
  EXPECT_FALSE(s.TrackFrames(1));  // nothing was touched
  ASSERT_TRUE(s.StartTracking());
  EXPECT_FALSE(s.SearchWholeFrame(1));  // the object is still tracked on the first hidden frame
}

}  // namespace
}  // namespace plovix_bench
