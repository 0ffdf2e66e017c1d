#include "tracking/driver.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "engine/tuning.h"
#include "model/model_state.h"
#include "support/test_support.h"
#include "tracking/tracker_state.h"

namespace {

using V = std::vector<int>;

constexpr uint8_t kObjCb = 40, kObjCr = 200;
constexpr int kW = 64, kH = 64;
constexpr int kUntouched = 555;

struct Outputs {
  OT_RECT rect{kUntouched, kUntouched, kUntouched, kUntouched};
  int moveEvent = kUntouched, sizeEvent = kUntouched, moveX = kUntouched, moveY = kUntouched;
  int state = kUntouched;
};

V Edges(const OT_RECT& r) { return {r.left, r.top, r.right, r.bottom}; }

// A 64 x 64 working frame with a solid 20 x 20 object at (20, 20): while the model knows its colour
// the tracker holds it in state 0; with an empty model a lost tracker never finds a candidate.
class Driver : public ::testing::Test {
 protected:
  void SetUp() override {
    y_.assign(kW * kH, 100);
    cbcr_.assign(kW * (kH / 2 + 1), 128);
    for (int r = 20; r < 40; r += 2) {
      for (int c = 20; c < 40; c += 2) {
        cbcr_[(r / 2) * kW + c] = kObjCb;
        cbcr_[(r / 2) * kW + c + 1] = kObjCr;
      }
    }
    std::memset(&gMst, 0, sizeof(gMst));
    SetTrackRect_Obj(&gMst, OT_RECT{20, 20, 40, 40});
    m_nOT = 1;
    Valid_cnt = LostCount = 0;
    Valid_flg = false;
    NCC_cnt = 1;
    g_nDirMCount = g_nDirSCount = 0;
    g_nLastMoveEvent = 7;
    g_nLastSizeEvent = 4;
    g_MAX_OBJ_SIZE = 100;
    g_MIN_OBJ_SIZE = 20;
    g_nRectIndex = g_nRectStack = -1;
    g_nMovementStack = 0;
  }
  void TearDown() override { m_nOT = 0; }

  void KnowTheObject() {
    for (auto& bin : gMst.histModel[kObjCb >> 3][kObjCr >> 3]) bin = 255;
  }
  int Run(Outputs* o, bool withState = true) {
    return OTK_ObjTracking(y_.data(), cbcr_.data(), kW, kH, kW, &o->rect, &o->moveEvent, &o->sizeEvent, &o->moveX,
                           &o->moveY, withState ? &o->state : nullptr);
  }

  plovix_test::LogCapture quiet_;  // the lost search has no templates to match here
  std::vector<uint8_t> y_, cbcr_;
};

TEST_F(Driver, NotTrackingLeavesEverythingUntouched) {
  for (int ot : {0, -3}) {
    m_nOT = ot;
    const CMeanShiftTracker before = gMst;
    Outputs o;
    EXPECT_EQ(Run(&o), 0);
    EXPECT_EQ(m_nOT, 0);
    EXPECT_EQ(Edges(o.rect), V(4, kUntouched));
    EXPECT_EQ(V({o.moveEvent, o.sizeEvent, o.moveX, o.moveY, o.state}), V(5, kUntouched));
    EXPECT_EQ(std::memcmp(&before, &gMst, sizeof(gMst)), 0);
  }
}

TEST_F(Driver, ReportsTheLastGoodRectangleWhileLostAndGivesUpOnThe102ndFrame) {
  KnowTheObject();
  Outputs o;
  EXPECT_EQ(Run(&o), 1);
  EXPECT_EQ(o.state, 0);
  EXPECT_EQ(Edges(o.rect), V({20, 20, 40, 40}));
  EXPECT_EQ(Edges(gMst.rcLastGood), V({20, 20, 40, 40}));

  std::memset(gMst.histModel, 0, sizeof(gMst.histModel));
  gMst.nState = 1;
  for (int frame = 1; frame <= 101; ++frame) {
    o.rect = OT_RECT{};
    ASSERT_EQ(Run(&o, frame % 2 == 0), 1) << "lost frame " << frame;
    EXPECT_EQ(Edges(o.rect), V({20, 20, 40, 40})) << "lost frame " << frame;
    EXPECT_EQ(LostCount, frame);
  }
  EXPECT_EQ(o.state, 1);
  EXPECT_NE(Edges(gMst.rcObject), V({20, 20, 40, 40}));
  EXPECT_EQ(Run(&o), -1);
  EXPECT_EQ(LostCount, 101);
}

// Only a tracking frame resets LostCount; a selection does not, so a tracker lost on its first
// frame after a long loss gives up at once.
TEST_F(Driver, LostCountIsResetOnlyByATrackingFrame) {
  for (const int state : {0, 1}) {
    SetUp();
    KnowTheObject();
    gMst.nState = state;
    LostCount = 101;
    Outputs o;
    EXPECT_EQ(Run(&o), state == 0 ? 1 : -1);
    EXPECT_EQ(LostCount, state == 0 ? 0 : 101);
  }
}

TEST_F(Driver, InvalidStateReportsTheObjectAndReturnsZero) {
  gMst.nState = 2;
  gMst.rcObject = OT_RECT{1, 2, 21, 22};
  gMst.rcLastGood = OT_RECT{9, 9, 9, 9};
  Outputs o;
  EXPECT_EQ(Run(&o), 0);
  EXPECT_EQ(o.state, 2);
  EXPECT_EQ(Edges(o.rect), V({1, 2, 21, 22}));
  EXPECT_EQ(Edges(gMst.rcLastGood), V({9, 9, 9, 9}));
}

// State 2 leaves rcObject to the test, so the windows can be fed any rectangles. The last codes
// show through until the windows are full; a still rectangle then gives code 0 and zero movement.
TEST_F(Driver, ClassifiesMovementOnceTheWindowsAreFull) {
  gMst.nState = 2;
  const V move = {7, 7, 7, 0, 2}, size = {4, 4, 0, 0, 1}, moveX = {kUntouched, kUntouched, kUntouched, 0, 19};
  const OT_RECT still{10, 10, 30, 30};
  const OT_RECT rects[] = {still, still, still, still, {26, 10, 52, 30}};
  Outputs o;
  for (int i = 0; i < 5; ++i) {
    gMst.rcObject = rects[i];
    Run(&o);
    EXPECT_EQ(V({o.moveEvent, o.sizeEvent, o.moveX}), V({move[i], size[i], moveX[i]})) << "frame " << i;
  }
  EXPECT_EQ(o.moveY, 0);
  EXPECT_EQ(V({g_nDirMCount, g_nDirSCount}), V({3, 2}));
}

}  // namespace
