#include "tracking/track_step.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <vector>

#include "engine/tuning.h"
#include "model/model_state.h"
#include "support/test_support.h"
#include "tracking/tracker_state.h"

namespace {

using plovix_test::LogCapture;
using Luma = std::function<uint8_t(int, int)>;
using V = std::vector<int>;

constexpr uint8_t kObjCb = 40, kObjCr = 200;
const char kNccMissing[] = "Can't update NCC for lack of information";

// A working image (line step = width): luma plane, then one chroma pair per 2x2 block.
struct Scene {
  int w, h;
  std::vector<uint8_t> y, cbcr;
  Scene(int width, int height) : w(width), h(height), y(width * height, 100), cbcr(width * (height / 2 + 1), 128) {}
  // Luma from f over [l, r) x [t, b); with object set, also the object's chroma (even edges).
  void Paint(int l, int t, int r, int b, const Luma& f, bool object = true) {
    for (int yy = t; yy < b; ++yy) {
      for (int xx = l; xx < r; ++xx) {
        y[yy * w + xx] = f(xx, yy);
        if (!object) continue;
        cbcr[(yy / 2) * w + (xx & ~1)] = kObjCb;
        cbcr[(yy / 2) * w + (xx & ~1) + 1] = kObjCr;
      }
    }
  }
  std::vector<uint8_t> Crop(int l, int t, int r, int b) const {
    std::vector<uint8_t> out;
    for (int yy = t; yy < b; ++yy) out.insert(out.end(), y.begin() + yy * w + l, y.begin() + yy * w + r);
    return out;
  }
  int Step() { return Track_YCC420BUNCH_Obj(&gMst, y.data(), cbcr.data(), w, h, w); }
};

V Edges(const OT_RECT& r) { return {r.left, r.top, r.right, r.bottom}; }
std::vector<uint8_t> Bytes(const uint8_t* p, int n) { return std::vector<uint8_t>(p, p + n); }
uint8_t Ramp(int x, int yy) { return static_cast<uint8_t>(30 + 5 * (x % 20) + 2 * (yy % 20)); }

class TrackStep : public ::testing::Test {
 protected:
  void SetUp() override {
    TearDown();
    std::memset(&gMst, 0, sizeof(gMst));
    gMst.bFirstFrame = true;
    m_nOT = 1;
    Valid_cnt = NCC_cnt = 0;
    Valid_flg = false;
    score_normcrosscorr = 100;
    g_MAX_OBJ_SIZE = 100;
    g_MIN_OBJ_SIZE = 20;
    g_nRectIndex = g_nRectStack = -1;
    g_nMovementStack = 0;
  }
  void TearDown() override {
    std::free(pObj_window);
    std::free(pObj_Seg_window);
    pObj_window = pObj_Seg_window = nullptr;
    obj_W = obj_H = obj_sW = obj_sH = 0;
    m_nOT = 0;
  }
  static void ModelWeight(uint8_t weight) {
    for (auto& bin : gMst.histModel[kObjCb >> 3][kObjCr >> 3]) bin = weight;
  }
  static void SetTemplate(uint8_t** p, int* w, int* h, const std::vector<uint8_t>& bytes, int tw, int th) {
    std::free(*p);
    *p = static_cast<uint8_t*>(std::calloc(bytes.size() * 8 + 1, 1));
    std::memcpy(*p, bytes.data(), bytes.size());
    *w = tw;
    *h = th;
  }
  // A solid object of weight 255 exactly under the track rectangle (40, 40, 60, 60) of a 100 x 100
  // frame: mean shift and size estimation leave the rectangle where it is.
  static Scene StableObject(const Luma& luma) {
    Scene s(100, 100);
    s.Paint(40, 40, 60, 60, luma);
    ModelWeight(255);
    SetTrackRect_Obj(&gMst, OT_RECT{40, 40, 60, 60});
    return s;
  }
};

TEST_F(TrackStep, DoesNothingWithoutAnObject) {
  Scene s(64, 64);
  m_nOT = 0;
  gMst.nState = 1;
  gMst.rcTrack = OT_RECT{-30, 5, 10, 20};
  const CMeanShiftTracker before = gMst;
  EXPECT_EQ(s.Step(), 0);
  EXPECT_EQ(std::memcmp(&before, &gMst, sizeof(gMst)), 0);
}

// With no current template every check logs the matching message and scores -100; the bonus of a
// full, dense window (+13) is added on every frame, checked or not.
TEST_F(TrackStep, TemplateIsCheckedOnEveryThirdTrackingFrame) {
  Scene s = StableObject(Ramp);
  LogCapture log;
  const int checks[] = {1, 0, 0, 1, 0, 0, 1};
  const int phase[] = {1, 2, 0, 1, 2, 0, 1};
  const int score[] = {-87, -74, -61, -87, -74, -61, -87};
  for (int i = 0; i < 7; ++i) {
    Valid_flg = true;
    log.Clear();
    s.Step();
    EXPECT_EQ(V({log.Count(kNccMissing), NCC_cnt, score_normcrosscorr}), V({checks[i], phase[i], score[i]}))
        << "step " << i + 1;
    EXPECT_FALSE(Valid_flg);
    EXPECT_EQ(gMst.nState, 0);
  }
  EXPECT_EQ(Edges(gMst.rcTrack), V({40, 40, 60, 60}));
  EXPECT_EQ(Edges(gMst.rcObject), V({40, 40, 60, 60}));
}

// Template (24 x 24): columns 60 + 5 (x - 2), so its centred 20 x 20 part runs 60, 65, ... The frame
// has the same ramp plus k on odd and minus k on even columns, which correlates to 55 for k = 50 and
// to 54 for k = 51. A refresh takes the frame's 20 x 20 rectangle.
TEST_F(TrackStep, RefreshesTheTemplateFromAScoreOf55) {
  for (const int k : {50, 51}) {
    SetUp();
    Scene s = StableObject([&](int x, int) { return static_cast<uint8_t>(60 + 5 * (x - 40) + (x % 2 ? k : -k)); });
    std::vector<uint8_t> tmpl;
    for (int i = 0; i < 24 * 24; ++i) tmpl.push_back(static_cast<uint8_t>(50 + 5 * (i % 24)));
    SetTemplate(&pObj_window, &obj_W, &obj_H, tmpl, 24, 24);
    s.Step();
    const bool refreshed = k == 50;
    EXPECT_EQ(score_normcrosscorr, refreshed ? 55 + 13 : 54 + 13);
    EXPECT_EQ(V({obj_W, obj_H}), refreshed ? V({20, 20}) : V({24, 24}));
    EXPECT_EQ(Bytes(pObj_window, obj_W * obj_H), refreshed ? s.Crop(40, 40, 60, 60) : tmpl);
  }
}

// Current template = the frame itself: score 99 + 13, capped at 100. Without one: -100 + 13.
TEST_F(TrackStep, RunningMeansFollowGoodTrackingFramesOnly) {
  for (const bool withTemplate : {true, false}) {
    SetUp();
    Scene s = StableObject(Ramp);
    if (withTemplate) SetTemplate(&pObj_window, &obj_W, &obj_H, s.Crop(40, 40, 60, 60), 20, 20);
    gMst.fAvgDensity = 100.0f;
    gMst.fAvgFillRate = 40.0f;
    gMst.nAvgCount = 3;
    s.Step();
    EXPECT_EQ(score_normcrosscorr, withTemplate ? 100 : -87);
    EXPECT_EQ(gMst.nInitFillRate, 100);
    EXPECT_EQ(gMst.fAvgDensity, withTemplate ? 138.75f : 100.0f);
    EXPECT_EQ(gMst.fAvgFillRate, withTemplate ? 55.0f : 40.0f);
    EXPECT_EQ(gMst.fFillPerDensity, withTemplate ? 55.0f / 138.75f : 0.0f);
    EXPECT_EQ(gMst.nAvgCount, withTemplate ? 4 : 3);
  }
}

// State 2 runs only the bookkeeping: a threshold of -1 makes every pixel count, so the fill rate is
// 100 and the bonus depends on the density and the score alone.
TEST_F(TrackStep, ScoreBonusForDenseWellFilledWindows) {
  const struct {
    int density, weightThr, scoreBefore, scoreAfter;
  } cases[] = {
      {54, -1, 50, 50},     // below the density bar
      {55, -1, 50, 53},     // (55 - 20) / 20 + (100 - 30) / 30 = 1 + 2
      {255, -1, 50, 63},    // 11 + 2
      {255, -1, 90, 100},   // capped
      {255, -1, -100, -87},
      {255, 0, 50, 50},     // fill rate 0: no bonus
  };
  for (const auto& c : cases) {
    SetUp();
    Scene s(64, 64);
    gMst.nState = 2;
    gMst.rcTrack = gMst.rcObject = OT_RECT{10, 10, 30, 30};
    gMst.nDensity = c.density;
    gMst.nWeightThr = c.weightThr;
    score_normcrosscorr = c.scoreBefore;
    EXPECT_EQ(s.Step(), 0);
    EXPECT_EQ(score_normcrosscorr, c.scoreAfter) << "density " << c.density << " score " << c.scoreBefore;
    EXPECT_EQ(gMst.nInitFillRate, c.weightThr < 0 ? 100 : 0);
    EXPECT_EQ(gMst.nState, 2);
  }
}

TEST_F(TrackStep, RectanglesEndInsideTheFrameAtTheirSize) {
  const struct {
    OT_RECT in;  // rcTrack and rcObject before
    int lostCount;
    V track, object;
  } cases[] = {
      {{-5, 2, 15, 12}, 0, {0, 2, 20, 12}, {0, 2, 20, 12}},
      {{90, 95, 110, 105}, 0, {80, 90, 100, 100}, {80, 90, 100, 100}},
      {{-10, -10, 130, 50}, 0, {-40, 0, 100, 60}, {-40, 0, 100, 60}},
      // While weak frames are counted the reported rectangle is left alone.
      {{-5, 2, 15, 12}, 2, {0, 2, 20, 12}, {-5, 2, 15, 12}},
  };
  for (const auto& c : cases) {
    SetUp();
    Scene s(100, 100);
    gMst.nState = 2;
    gMst.rcTrack = gMst.rcObject = c.in;
    gMst.nLostCount = c.lostCount;
    s.Step();
    EXPECT_EQ(Edges(gMst.rcTrack), c.track);
    EXPECT_EQ(Edges(gMst.rcObject), c.object);
    const int w = c.track[2] - c.track[0], h = c.track[3] - c.track[1];
    EXPECT_EQ(V({gMst.nObjW, gMst.nWinW, gMst.nObjH, gMst.nWinH}), V({w, w, h, h}));
  }
}

// Without templates each candidate costs two matching calls, each logging once: the grid corners,
// the centre candidate and the final rectangle. A side of 42 has a grid step of 0 and must not hang.
TEST_F(TrackStep, LostSearchVisitsTheCornerGridAndTheCentre) {
  const struct {
    int w, h, messages;
  } cases[] = {
      {41, 100, 4},  // no grid: centre and final
      {42, 42, 6},   // one corner
      {43, 43, 6},   // step 1, but 21 is not below w / 2
      {44, 44, 12},  // four corners
      {100, 100, 12},
      {160, 120, 12},
  };
  for (const auto& c : cases) {
    SetUp();
    Scene s(c.w, c.h);
    gMst.nState = 1;
    LogCapture log;
    s.Step();
    EXPECT_EQ(log.Count(kNccMissing), c.messages) << c.w << "x" << c.h;
    EXPECT_EQ(score_normcrosscorr, -100);
  }
}

// With no weights anywhere each mean-shift search stays at the centre of its region: grid
// candidates centred on (60 or 100, 60 or 100), the centre candidate on (80, 80), each 16 x 16 like
// the current template. A copy of the 20 x 20 selection template sits at (70, 70)-(90, 90) on a flat
// background, so only the centre candidate can match.
TEST_F(TrackStep, LostSearchFallsBackToTheSelectionTemplateOnlyWhenItScoresHigher) {
  for (const bool currentMatches : {false, true}) {
    SetUp();
    std::vector<uint8_t> seg, inner;
    for (int i = 0; i < 400; ++i) seg.push_back(static_cast<uint8_t>(40 + 7 * (i % 20) + 3 * (i / 20)));
    for (int r = 2; r < 18; ++r) inner.insert(inner.end(), seg.begin() + r * 20 + 2, seg.begin() + r * 20 + 18);
    Scene s(160, 160);
    s.Paint(70, 70, 90, 90, [&](int x, int yy) { return seg[(yy - 70) * 20 + (x - 70)]; }, false);
    SetTemplate(&pObj_Seg_window, &obj_sW, &obj_sH, seg, 20, 20);
    SetTemplate(&pObj_window, &obj_W, &obj_H, currentMatches ? inner : std::vector<uint8_t>(256, 100), 16, 16);
    gMst.nState = 1;
    gMst.rcTrack = OT_RECT{3, 4, 23, 24};
    g_nRectIndex = g_nRectStack = g_nMovementStack = 1;
    EXPECT_EQ(s.Step(), 0);
    EXPECT_EQ(Edges(gMst.rcObject), V({3, 4, 23, 24}));
    EXPECT_EQ(Edges(gMst.rcTrack), V({72, 72, 88, 88}));
    EXPECT_EQ(gMst.nObjW, 16);
    EXPECT_EQ(score_normcrosscorr, 99);
    EXPECT_EQ(obj_W, currentMatches ? 16 : 20);
    EXPECT_EQ(Bytes(pObj_window, obj_W * obj_H), currentMatches ? inner : seg);
    EXPECT_EQ(V({g_nRectIndex, g_nRectStack, g_nMovementStack}), V({-1, -1, 0}));
  }
}

// After a long loss: the first densest 20 x 20 block, in row order, of the grid that starts at a
// quarter of the frame and steps by 10; no template is consulted.
TEST_F(TrackStep, BlockSearchTakesTheFirstDensestBlock) {
  const struct {
    std::vector<std::pair<int, int>> objects;
    V expected;
    int density;
  } cases[] = {
      {{{70, 60}}, {70, 60, 90, 80}, 255},
      {{{50, 80}, {100, 60}}, {100, 60, 120, 80}, 255},
      {{{100, 60}, {110, 60}}, {100, 60, 120, 80}, 255},
      {{}, {5, 6, 25, 26}, 0},  // nothing found: rcTrack stays
  };
  for (const auto& c : cases) {
    SetUp();
    Scene s(160, 160);
    for (const auto& o : c.objects) s.Paint(o.first, o.second, o.first + 20, o.second + 20, Ramp);
    ModelWeight(255);
    gMst.nState = 1;
    gMst.nDensity = 77;
    gMst.rcTrack = OT_RECT{5, 6, 25, 26};
    Valid_flg = true;
    g_nRectIndex = 2;
    LogCapture log;
    EXPECT_EQ(s.Step(), 0);
    EXPECT_EQ(Edges(gMst.rcTrack), c.expected);
    EXPECT_EQ(gMst.nDensity, c.density);
    EXPECT_EQ(log.Count(kNccMissing), 0);
    EXPECT_EQ(g_nRectIndex, -1);
  }
}

}  // namespace
