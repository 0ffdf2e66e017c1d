#include "engine/rect_adjust.h"

#include <gtest/gtest.h>

#include <array>

#include "support/test_support.h"
#include "tracking/tracker_state.h"

using plovix_test::LogCapture;

namespace {

using Rect = std::array<int, 4>;  // left, top, right, bottom

void SetTrack(const Rect& r) { gMst.rcTrack = {r[0], r[1], r[2], r[3]}; }
Rect Track() { return {gMst.rcTrack.left, gMst.rcTrack.top, gMst.rcTrack.right, gMst.rcTrack.bottom}; }

}  // namespace

TEST(AdjustTrackRect, MapsThroughTheSensorViewAndCropsIntoTheNewFrame) {
  struct Case {
    int sensor, curW, curH;
    Rect in, want;
  };
  const Case cases[] = {
      // 4:3: the 480x270 frame sits 45 lines down a 480x360 view; 320x240 is the whole view.
      {0, 320, 240, {200, 100, 280, 170}, {133, 96, 186, 143}},
      {-1, 320, 240, {200, 100, 280, 170}, {200, 100, 280, 170}},
      // 16:9 to 360x270: the 480-wide view loses 60 columns on each side.
      {1, 360, 270, {200, 100, 280, 170}, {140, 100, 220, 170}},
      {1, 360, 270, {30, 100, 90, 170}, {0, 100, 60, 170}},       // pinned at 0
      {1, 360, 270, {400, 100, 470, 170}, {289, 100, 359, 170}},  // pinned at width - 1
      {1, 360, 270, {350, 100, 420, 170}, {290, 100, 360, 170}},  // right edge = width is kept
  };
  LogCapture log;
  for (const Case& c : cases) {
    SetTrack(c.in);
    AdjustTrackRect(c.sensor, 480, 270, c.curW, c.curH);
    EXPECT_EQ(c.want, Track()) << c.sensor << " " << c.in[0];
  }
  log.Clear();
  SetTrack({200, 100, 280, 170});
  AdjustTrackRect(0, 480, 270, 320, 240);
  ASSERT_EQ(2u, log.lines().size());
  EXPECT_EQ(6, log.lines()[0].priority);
  EXPECT_EQ("AdjustTrackRect prev 480x270->480x360, cur 320x240->320x240", log.lines()[0].text);
  EXPECT_EQ("AdjustTrackRect prev rect200 280 100 170 changed 133 186 96 143", log.lines()[1].text);
}

TEST(ResizeTrackRect, ScalesAboutTheCentreOrLeavesTheRectangle) {
  struct Case {
    float prev, cur;
    Rect in, want;
    int result;
  };
  const Case cases[] = {
      {1.0f, 2.0f, {200, 100, 280, 170}, {160, 65, 320, 205}, 0},
      {2.0f, 1.0f, {236, 130, 246, 140}, {230, 124, 250, 144}, 0},  // too small: re-centred at 20
      {1.0f, 1.0f, {465, 0, 475, 5}, {459, 0, 479, 20}, 0},         // small at the right and top edges
      {1.0f, 1.0f, {400, 100, 500, 170}, {400, 100, 479, 170}, 0},  // right edge past the width
      {1.0f, 10.0f, {400, 100, 470, 170}, {400, 100, 470, 170}, 1},
      {0.5f, 2.0f, {200, 100, 280, 170}, {200, 100, 280, 170}, -1},
      {2.0f, 11.0f, {200, 100, 280, 170}, {200, 100, 280, 170}, -1},
  };
  LogCapture log;
  for (const Case& c : cases) {
    SetTrack(c.in);
    EXPECT_EQ(c.result, ResizeTrackRect(c.prev, c.cur, 480, 270)) << c.prev << " " << c.cur;
    EXPECT_EQ(c.want, Track()) << c.prev << " " << c.cur;
  }
}

TEST(ResizeTrackRect, Messages) {
  LogCapture log;
  SetTrack({200, 100, 280, 170});
  ResizeTrackRect(1.0f, 1.5f, 480, 270);
  ResizeTrackRect(1.5f, 10.0f, 480, 270);
  ResizeTrackRect(0.5f, 2.0f, 480, 270);
  const plovix_test::LogLine want[] = {
      {4, "ResizeTrackRect prev zr 1.000000 -> 1.500000 rect200 280 100 170 changed 180 300 82 187"},
      {4, "ResizeTrackRect prev zr 1.500000 -> 10.000000 rect180 300 82 187 changed -160 640 -218 481"},
      {6, "ResizeTrackRect result out of box, so tracking will be stopped"},
      {6, "ResizeTrackRect error zoomRatio 0.500000 2.000000"},
  };
  ASSERT_EQ(4u, log.lines().size());
  for (size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(want[i].priority, log.lines()[i].priority);
    EXPECT_EQ(want[i].text, log.lines()[i].text);
  }
}
