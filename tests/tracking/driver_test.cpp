#include "tracking/driver.h"

#include <cstring>

#include "support/test_support.h"

namespace {

using plovix_test::Edges;
using V = std::vector<int>;

constexpr int kUntouched = 555;

struct Outputs {
  OT_RECT rect{kUntouched, kUntouched, kUntouched, kUntouched};
  int moveEvent = kUntouched, sizeEvent = kUntouched, moveX = kUntouched, moveY = kUntouched;
  int state = kUntouched;
  V All() const { return {rect.left, rect.top, rect.right, rect.bottom, moveEvent, sizeEvent, moveX, moveY, state}; }
};

// A 64 x 64 working frame with a solid 20 x 20 object at (20, 20): while the model knows its colour
// the tracker holds it in state 0; with an empty model a lost tracker never finds a candidate.
class Driver : public plovix_test::TrackerTest {
 protected:
  void SetUp() override {
    TrackerTest::SetUp();
    scene_.Paint(20, 20, 40, 40, [](int, int) { return 100; });
    SetTrackRect_Obj(&gMst, OT_RECT{20, 20, 40, 40});
    m_nOT = NCC_cnt = 1;
  }
  int Run(Outputs* o, bool withState = true) {
    return OTK_ObjTracking(scene_.y.data(), scene_.cbcr.data(), 64, 64, 64, &o->rect, &o->moveEvent, &o->sizeEvent,
                           &o->moveX, &o->moveY, withState ? &o->state : nullptr);
  }

  plovix_test::LogCapture quiet_;  // the lost search has no templates to match here
  plovix_test::WorkScene scene_{64, 64};
};

TEST_F(Driver, NotTrackingLeavesEverythingUntouched) {
  for (int ot : {0, -3}) {
    m_nOT = ot;
    const CMeanShiftTracker before = gMst;
    Outputs o;
    EXPECT_EQ(Run(&o), 0);
    EXPECT_EQ(m_nOT, 0);
    EXPECT_EQ(o.All(), V(9, kUntouched));
    EXPECT_EQ(std::memcmp(&before, &gMst, sizeof(gMst)), 0);
  }
}

// A tracking frame resets LostCount, here left at 101 by an earlier loss; each lost frame counts one.
TEST_F(Driver, ReportsTheLastGoodRectangleWhileLostAndGivesUpOnThe102ndFrame) {
  plovix_test::SetObjectWeight(255);
  LostCount = 101;
  Outputs o;
  EXPECT_EQ(Run(&o), 1);
  EXPECT_EQ(V({o.state, LostCount}), V({0, 0}));
  EXPECT_EQ(Edges(gMst.rcLastGood), (Edges({20, 20, 40, 40})));

  std::memset(gMst.histModel, 0, sizeof(gMst.histModel));
  gMst.nState = 1;
  for (int frame = 1; frame <= 101; ++frame) {
    o.rect = OT_RECT{};
    ASSERT_EQ(Run(&o, frame % 2 == 0), 1) << "lost frame " << frame;
    EXPECT_EQ(Edges(o.rect), (Edges({20, 20, 40, 40}))) << "lost frame " << frame;
    EXPECT_EQ(LostCount, frame);
  }
  EXPECT_EQ(o.state, 1);
  EXPECT_NE(Edges(gMst.rcObject), (Edges({20, 20, 40, 40})));
  EXPECT_EQ(Run(&o), -1);
  EXPECT_EQ(LostCount, 101);
}

// State 2 leaves rcObject to the test, so the windows can be fed any rectangles; it returns 0 and
// reports rcObject. The last codes show through until the windows are full; a still rectangle then
// gives code 0 and zero movement.
TEST_F(Driver, ClassifiesMovementOnceTheWindowsAreFull) {
  gMst.nState = 2;
  g_nLastMoveEvent = 7;
  g_nLastSizeEvent = 4;
  const V move = {7, 7, 7, 0, 2}, size = {4, 4, 0, 0, 1}, moveX = {kUntouched, kUntouched, kUntouched, 0, 19};
  const OT_RECT still{10, 10, 30, 30};
  const OT_RECT rects[] = {still, still, still, still, {26, 10, 52, 30}};
  Outputs o;
  for (int i = 0; i < 5; ++i) {
    gMst.rcObject = rects[i];
    EXPECT_EQ(Run(&o), 0);
    EXPECT_EQ(V({o.moveEvent, o.sizeEvent, o.moveX, o.state}), V({move[i], size[i], moveX[i], 2})) << "frame " << i;
    EXPECT_EQ(Edges(o.rect), Edges(rects[i]));
  }
  EXPECT_EQ(o.moveY, 0);
  EXPECT_EQ(V({g_nDirMCount, g_nDirSCount}), V({3, 2}));
}

}  // namespace
