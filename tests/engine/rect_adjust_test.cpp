#include "engine/rect_adjust.h"

#include "support/test_support.h"

using plovix_test::Edges;
using Rect = std::array<int, 4>;  // left, top, right, bottom

namespace {
void SetTrack(const Rect& r) { gMst.rcTrack = {r[0], r[1], r[2], r[3]}; }
}  // namespace

TEST(AdjustTrackRect, MapsThroughTheSensorViewAndCropsIntoTheNewFrame) {
  plovix_test::LogCapture log;
  for (auto [sensor, curW, curH, in, want] : {
           // 4:3: the 480x270 frame sits 45 lines down a 480x360 view; 320x240 is the whole view.
           std::tuple{0, 320, 240, Rect{200, 100, 280, 170}, Rect{133, 96, 186, 143}},
           {-1, 320, 240, {200, 100, 280, 170}, {200, 100, 280, 170}},
           // 16:9 to 360x270: the 480-wide view loses 60 columns on each side.
           {1, 360, 270, {200, 100, 280, 170}, {140, 100, 220, 170}},
           {1, 360, 270, {30, 100, 90, 170}, {0, 100, 60, 170}},       // pinned at 0
           {1, 360, 270, {400, 100, 470, 170}, {289, 100, 359, 170}},  // pinned at width - 1
           {1, 360, 270, {350, 100, 420, 170}, {290, 100, 360, 170}},  // right edge = width is kept
       }) {
    SetTrack(in);
    AdjustTrackRect(sensor, 480, 270, curW, curH);
    EXPECT_EQ(want, Edges(gMst.rcTrack)) << sensor << " " << in[0];
  }
  EXPECT_EQ(1, log.Count("AdjustTrackRect prev 480x270->480x360, cur 320x240->320x240"));
  EXPECT_EQ(1, log.Count("AdjustTrackRect prev rect200 280 100 170 changed 133 186 96 143"));
}

TEST(ResizeTrackRect, ScalesAboutTheCentreOrLeavesTheRectangle) {
  plovix_test::LogCapture log;
  for (auto [prev, cur, in, want, result] : {
           std::tuple{1.0f, 2.0f, Rect{200, 100, 280, 170}, Rect{160, 65, 320, 205}, 0},
           {2.0f, 1.0f, {236, 130, 246, 140}, {230, 124, 250, 144}, 0},  // too small: re-centred at 20
           {1.0f, 1.0f, {465, 0, 475, 5}, {459, 0, 479, 20}, 0},         // small at the right and top edges
           {1.0f, 1.0f, {400, 100, 500, 170}, {400, 100, 479, 170}, 0},  // right edge past the width
           {1.0f, 10.0f, {400, 100, 470, 170}, {400, 100, 470, 170}, 1},
           {0.5f, 2.0f, {200, 100, 280, 170}, {200, 100, 280, 170}, -1},
           {2.0f, 11.0f, {200, 100, 280, 170}, {200, 100, 280, 170}, -1},
       }) {
    SetTrack(in);
    EXPECT_EQ(result, ResizeTrackRect(prev, cur, 480, 270)) << prev << " " << cur;
    EXPECT_EQ(want, Edges(gMst.rcTrack)) << prev << " " << cur;
  }
  EXPECT_EQ(1, log.Count("ResizeTrackRect prev zr 1.000000 -> 2.000000 rect200 280 100 170 changed 160 320 65 205"));
  EXPECT_EQ(1, log.Count("ResizeTrackRect result out of box, so tracking will be stopped"));
  EXPECT_EQ(1, log.Count("ResizeTrackRect error zoomRatio 0.500000 2.000000"));
}
