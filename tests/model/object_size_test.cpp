#include "model/object_size.h"

#include "support/test_support.h"

namespace {

using Box = std::array<int, 4>;
using plovix_test::Edges;
using plovix_test::Weights;
using ObjectSize = plovix_test::TrackerTest;

OT_RECT Around(int cx, int cy) { return OT_RECT{cx - 20, cy - 20, cx + 20, cy + 20}; }

// One GetSizeVH step at threshold 100, horizontal unless vertical is set.
Box Size(Weights& img, OT_RECT r, bool vertical = false) {
  return Edges(GetSizeVH(img.px.data(), img.w, img.h, r, 100, vertical, !vertical));
}

TEST_F(ObjectSize, StepIsOneOrTwoPixels) {
  g_MIN_OBJ_SIZE = 5;
  g_MAX_OBJ_SIZE = 200;
  Weights full = Weights(300, 300).Fill(0, 0, 300, 300, 255);
  for (auto [extent, step] : {std::pair{10, 1}, {20, 1}, {30, 1}, {39, 1}, {40, 2}, {100, 2}}) {
    EXPECT_EQ(Size(full, {100, 100, 100 + extent, 150}), (Box{100 - step, 100, 100 + extent + step, 150}));
    EXPECT_EQ(Size(full, {100, 100, 150, 100 + extent}, true), (Box{100, 100 - step, 150, 100 + extent + step}));
  }
}

TEST_F(ObjectSize, GrowsAndShrinksByTheFillOfOneBand) {
  // A 30 x 50 object at (50, 50); outer band columns 49 and 80, inner band 50 and 79, 100 pixels
  // each. Grow above 25 %, shrink for 1..19 % but not for an empty band; growth wins.
  const Box same{50, 50, 80, 100}, grown{49, 50, 81, 100}, shrunk{51, 50, 79, 100};
  for (auto [outer, inner, expected] : {std::tuple{26, 100, grown}, {25, 100, same}, {0, 19, shrunk}, {0, 1, shrunk},
                                        {0, 20, same}, {0, 0, same}, {26, 10, grown}}) {
    Weights img(200, 200);
    img.Fill(51, 50, 79, 100, 255).Fill(49, 50, 50, 100, 255, outer).Fill(50, 50, 51, 100, 255, inner);
    EXPECT_EQ(Size(img.Fill(79, 50, 80, 100, 255, inner - 50), {50, 50, 80, 100}), expected) << outer << " " << inner;
  }
}

TEST_F(ObjectSize, SizeBoundsAndClipping) {
  Weights full = Weights(200, 200).Fill(0, 0, 200, 200, 255), empty(200, 200);
  EXPECT_EQ(Size(full, {50, 50, 150, 100}), (Box{50, 50, 150, 100}));  // 102 would be too wide
  EXPECT_EQ(Size(Weights(200, 200).Fill(51, 50, 69, 100, 255).Fill(50, 50, 51, 100, 255, 10), {50, 50, 70, 100}),
            (Box{50, 50, 70, 100}));                                  // 18 would be too narrow
  EXPECT_EQ(Size(full, {0, 50, 30, 100}), (Box{0, 50, 31, 100}));     // clipped outer
  EXPECT_EQ(Size(empty, {-4, 50, 26, 100}), (Box{-4, 50, 26, 100}));  // unchanged, unclipped
  // Clipped width 19 is invalid: count -1 over 760 pixels against the outer (0, 0, 21, 40) of
  // 840, so the grow rate (-1 - n) * 100 / -80 is 26 for n = 20 and 25 for n = 19.
  EXPECT_EQ(Size(Weights(100, 100).Fill(20, 0, 21, 40, 255, 20), {-21, 0, 19, 40}), (Box{0, 0, 21, 40}));
  EXPECT_EQ(Size(Weights(100, 100).Fill(20, 0, 21, 40, 255, 19), {-21, 0, 19, 40}), (Box{-21, 0, 19, 40}));
}

TEST_F(ObjectSize, FirstEstimationSetsTheThresholdFromTheRing) {
  // In the corner the ring keeps the bands below (300 pixels of 100) and right (200 of 0). Above
  // the image the band above is empty and outside pixels count in the areas with weight 0.
  for (auto [img, track, density, threshold] :
       {std::tuple{Weights(100, 100).Fill(0, 20, 30, 30, 100).Fill(0, 0, 20, 20, 200), OT_RECT{0, 0, 20, 20}, 200, 130},
        {Weights(100, 100).Fill(30, 0, 70, 20, 80).Fill(40, 0, 60, 10, 200), OT_RECT{40, -10, 60, 10}, 100, 80}}) {
    CMeanShiftTracker t = {};
    t.rcTrack = track;
    GetObjectSize_Obj(&t, img.px.data(), img.w, img.h);
    EXPECT_EQ(std::tuple(t.nDensity, t.nInitDensity, t.nWeightThr), std::tuple(density, density, threshold));
    img.Fill(0, 0, img.w, img.h, 100);  // later estimations keep the threshold
    GetObjectSize_Obj(&t, img.px.data(), img.w, img.h);
    EXPECT_EQ(std::tuple(t.nDensity, t.nWeightThr), std::tuple(track.top < 0 ? 50 : 100, threshold));
  }
}

// All-zero weights leave the size step without effect: each call feeds rcTrack to the history.
bool Reported(OT_RECT r) {
  static const std::vector<uint8_t> zero(300 * 300);
  CMeanShiftTracker t = {};
  t.rcTrack = r;
  GetObjectSize_Obj(&t, const_cast<uint8_t*>(zero.data()), 300, 300);
  return Edges(t.rcObject) == Edges(r);
}

TEST_F(ObjectSize, ShortHistoryFollowsLargeShiftsAndDecays) {
  g_nMovementStack = 1;
  EXPECT_TRUE(Reported(Around(100, 100)));  // first entry
  EXPECT_TRUE(Reported(Around(125, 75)));   // 25 is no movement; the movement count decays
  EXPECT_FALSE(Reported(Around(150, 50)));
  EXPECT_EQ(std::tuple(g_nRectStack, g_nRectIndex, Edges(g_RectShowbox[2])), std::tuple(3, 2, Edges(Around(150, 50))));
  for (int cy : {24, 50, 24, 50}) EXPECT_TRUE(Reported(Around(176, cy)));  // 26 is
  EXPECT_EQ(g_nMovementStack, 3);
}

TEST_F(ObjectSize, FullHistoryTellsMovementFromJitter) {
  // Centres oldest, middle, newest, next; moved?
  const std::tuple<std::array<int, 4>, std::array<int, 4>, bool> cases[] = {
      {{100, 105, 110, 115}, {100, 100, 100, 100}, true},   // steady drift
      {{100, 105, 110, 105}, {100, 100, 100, 100}, false},  // came back
      {{110, 100, 105, 110}, {100, 100, 100, 100}, false},  // reversal two steps back
      {{100, 110, 105, 105}, {100, 100, 100, 100}, false},  // still after coming back
      {{100, 105, 110, 115}, {100, 105, 110, 105}, false},  // drift in x, reversal in y
      {{100, 100, 100, 101}, {100, 100, 100, 102}, false},  // near the oldest
      {{100, 100, 100, 101}, {100, 100, 100, 103}, true},
      {{100, 100, 100, 103}, {100, 100, 100, 100}, true},
  };
  for (const auto& [x, y, moved] : cases) {
    for (int i = 0; i < 3; ++i) g_RectShowbox[i] = Around(x[i], y[i]);
    g_nRectIndex = 2;
    g_nRectStack = 3;
    g_nMovementStack = 0;
    EXPECT_EQ(Reported(Around(x[3], y[3])), moved) << x[3] << " " << y[3];
    EXPECT_EQ(g_nMovementStack, moved ? 1 : 0);
    EXPECT_EQ(Edges(g_RectShowbox[0]), Edges(Around(x[3], y[3])));
  }
}

}  // namespace
