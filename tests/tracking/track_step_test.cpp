#include "tracking/track_step.h"

#include <cstdlib>
#include <cstring>

#include "support/test_support.h"

namespace {

using plovix_test::Edges;
using plovix_test::LogCapture;
using Bytes = std::vector<uint8_t>;
using V = std::vector<int>;

const char kNccMissing[] = "Can't update NCC for lack of information";

struct Scene : plovix_test::WorkScene {
  using WorkScene::WorkScene;
  int Step() { return Track_YCC420BUNCH_Obj(&gMst, y.data(), cbcr.data(), w, h, w); }
};

uint8_t Ramp(int x, int yy) { return static_cast<uint8_t>(30 + 5 * (x % 20) + 2 * (yy % 20)); }

void SetTemplate(uint8_t** p, int* w, int* h, const Bytes& bytes, int tw, int th) {
  std::free(*p);
  *p = static_cast<uint8_t*>(std::calloc(bytes.size() * 8 + 1, 1));
  std::memcpy(*p, bytes.data(), bytes.size());
  *w = tw, *h = th;
}

class TrackStep : public plovix_test::TrackerTest {
 protected:
  void SetUp() override {
    TrackerTest::SetUp();
    gMst.bFirstFrame = true;
    m_nOT = 1;
  }
  // A solid object of weight 255 exactly under the track rectangle (40, 40, 60, 60) of a 100 x 100
  // frame: mean shift and size estimation leave the rectangle where it is.
  template <typename Luma>
  static Scene StableObject(Luma luma) {
    Scene s(100, 100);
    s.Paint(40, 40, 60, 60, luma);
    plovix_test::SetObjectWeight(255);
    SetTrackRect_Obj(&gMst, OT_RECT{40, 40, 60, 60});
    return s;
  }
};

// With no current template every check logs the matching message and scores -100; the bonus of a
// full, dense window (+13) is added on every frame, checked or not.
TEST_F(TrackStep, TemplateIsCheckedOnEveryThirdTrackingFrame) {
  Scene s = StableObject(Ramp);
  LogCapture log;
  const V checks = {1, 0, 0, 1, 0, 0, 1}, phase = {1, 2, 0, 1, 2, 0, 1}, score = {-87, -74, -61, -87, -74, -61, -87};
  for (int i = 0; i < 7; ++i) {
    Valid_flg = true;
    log.Clear();
    s.Step();
    EXPECT_EQ(V({log.Count(kNccMissing), NCC_cnt, score_normcrosscorr, Valid_flg, gMst.nState}),
              V({checks[i], phase[i], score[i], 0, 0}))
        << "step " << i + 1;
  }
  EXPECT_EQ(Edges(gMst.rcObject), (Edges({40, 40, 60, 60})));
}

// Template (24 x 24): columns 60 + 5 (x - 2), so its centred 20 x 20 part runs 60, 65, ... The frame
// has the same ramp plus k on odd and minus k on even columns, which correlates to 55 for k = 50 and
// to 54 for k = 51. A refresh takes the frame's 20 x 20 rectangle.
TEST_F(TrackStep, RefreshesTheTemplateFromAScoreOf55) {
  for (const int k : {50, 51}) {
    SetUp();
    Scene s = StableObject([&](int x, int) { return static_cast<uint8_t>(60 + 5 * (x - 40) + (x % 2 ? k : -k)); });
    Bytes tmpl;
    for (int i = 0; i < 24 * 24; ++i) tmpl.push_back(static_cast<uint8_t>(50 + 5 * (i % 24)));
    SetTemplate(&pObj_window, &obj_W, &obj_H, tmpl, 24, 24);
    s.Step();
    const bool refreshed = k == 50;
    EXPECT_EQ(score_normcrosscorr, refreshed ? 55 + 13 : 54 + 13);
    EXPECT_EQ(V({obj_W, obj_H}), refreshed ? V({20, 20}) : V({24, 24}));
    EXPECT_EQ(Bytes(pObj_window, pObj_window + obj_W * obj_H), refreshed ? s.Crop(40, 40, 60, 60) : tmpl);
  }
}

// State 2 runs only the bookkeeping: a threshold of -1 makes every pixel count, so the fill rate is
// 100 and the bonus depends on the density and the score alone.
TEST_F(TrackStep, ScoreBonusForDenseWellFilledWindows) {
  for (auto [density, weightThr, before, after] : {std::tuple{54, -1, 50, 50},  // below the density bar
                                                   {55, -1, 50, 53},     // (55 - 20) / 20 + (100 - 30) / 30 = 1 + 2
                                                   {255, -1, 50, 63},    // 11 + 2
                                                   {255, -1, 90, 100},   // capped
                                                   {255, 0, 50, 50}}) {  // fill rate 0: no bonus
    SetUp();
    Scene s(64, 64);
    gMst.nState = 2;
    gMst.rcTrack = gMst.rcObject = OT_RECT{10, 10, 30, 30};
    gMst.nDensity = density;
    gMst.nWeightThr = weightThr;
    score_normcrosscorr = before;
    EXPECT_EQ(s.Step(), 0);
    EXPECT_EQ(V({score_normcrosscorr, gMst.nInitFillRate, gMst.nState}), V({after, weightThr < 0 ? 100 : 0, 2}))
        << "density " << density << " score " << before;
  }
}

// Without templates each candidate costs two matching calls, each logging once: the grid corners,
// the centre candidate and the final rectangle. A side of 42 has a grid step of 0 and must not hang.
TEST_F(TrackStep, LostSearchVisitsTheCornerGridAndTheCentre) {
  for (auto [w, h, messages] : {std::tuple{41, 100, 4},  // no grid: centre and final
                                {42, 42, 6},             // one corner
                                {43, 43, 6},             // step 1, but 21 is not below w / 2
                                {44, 44, 12},            // four corners
                                {160, 120, 12}}) {
    SetUp();
    Scene s(w, h);
    gMst.nState = 1;
    LogCapture log;
    s.Step();
    EXPECT_EQ(log.Count(kNccMissing), messages) << w << "x" << h;
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
    Bytes seg, inner;
    for (int i = 0; i < 400; ++i) seg.push_back(static_cast<uint8_t>(40 + 7 * (i % 20) + 3 * (i / 20)));
    for (int r = 2; r < 18; ++r) inner.insert(inner.end(), seg.begin() + r * 20 + 2, seg.begin() + r * 20 + 18);
    Scene s(160, 160);
    s.Paint(70, 70, 90, 90, [&](int x, int yy) { return seg[(yy - 70) * 20 + (x - 70)]; }, false);
    SetTemplate(&pObj_Seg_window, &obj_sW, &obj_sH, seg, 20, 20);
    SetTemplate(&pObj_window, &obj_W, &obj_H, currentMatches ? inner : Bytes(256, 100), 16, 16);
    gMst.nState = 1;
    gMst.rcTrack = OT_RECT{3, 4, 23, 24};
    g_nRectIndex = g_nRectStack = g_nMovementStack = 1;
    EXPECT_EQ(s.Step(), 0);
    EXPECT_EQ(Edges(gMst.rcObject), (Edges({3, 4, 23, 24})));
    EXPECT_EQ(Edges(gMst.rcTrack), (Edges({72, 72, 88, 88})));
    EXPECT_EQ(score_normcrosscorr, 99);
    EXPECT_EQ(Bytes(pObj_window, pObj_window + obj_W * obj_H), currentMatches ? inner : seg);
    EXPECT_EQ(V({g_nRectIndex, g_nRectStack, g_nMovementStack}), V({-1, -1, 0}));
  }
}

// After a long loss: the first densest 20 x 20 block, in row order, of the grid that starts at a
// quarter of the frame and steps by 10; no template is consulted.
TEST_F(TrackStep, BlockSearchTakesTheFirstDensestBlock) {
  using Objects = std::vector<std::pair<int, int>>;  // top-left corners of 20 x 20 objects
  for (auto [objects, expected, density] : {std::tuple{Objects{{70, 60}}, OT_RECT{70, 60, 90, 80}, 255},
                                            {Objects{{50, 80}, {100, 60}}, OT_RECT{100, 60, 120, 80}, 255},
                                            {Objects{{100, 60}, {110, 60}}, OT_RECT{100, 60, 120, 80}, 255},
                                            {Objects{}, OT_RECT{5, 6, 25, 26}, 0}}) {  // nothing found: rcTrack stays
    SetUp();
    Scene s(160, 160);
    for (auto [x, y] : objects) s.Paint(x, y, x + 20, y + 20, Ramp);
    plovix_test::SetObjectWeight(255);
    gMst.nState = 1;
    gMst.nDensity = 77;
    gMst.rcTrack = OT_RECT{5, 6, 25, 26};
    Valid_flg = true;
    g_nRectIndex = 2;
    LogCapture log;
    EXPECT_EQ(s.Step(), 0);
    EXPECT_EQ(Edges(gMst.rcTrack), Edges(expected));
    EXPECT_EQ(V({gMst.nDensity, log.Count(kNccMissing), g_nRectIndex}), V({density, 0, -1}));
  }
}

}  // namespace
