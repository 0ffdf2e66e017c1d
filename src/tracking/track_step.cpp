#include "tracking/track_step.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "engine/frame_intake.h"
#include "engine/tuning.h"
#include "model/model_state.h"
#include "model/object_size.h"
#include "model/region.h"
#include "model/selection.h"
#include "model/weight_column_sums.h"
#include "model/weight_image.h"
#include "platform/arith.h"
#include "platform/log.h"
#include "platform/memory.h"
#include "tracking/lost_detection.h"
#include "tracking/mean_shift.h"
#include "tracking/ncc.h"

namespace {

constexpr int kStateTracking = 0;
constexpr int kStateLost = 1;

constexpr int kMeanShiftEps = 1;
constexpr int kNoScore = -100;

// Lost search: corner grid inset and the smallest frame side that has a grid at all.
constexpr int kGridInset = 20;
constexpr int kGridMargin = 40;
constexpr int kGridMinSide = 42;
constexpr int kGridParts = 3;
// A current-template score above this skips the selection template.
constexpr int kCurrentTemplateGoodEnough = 14;

constexpr int kBlockSearchStep = 10;

constexpr int kNccLastPhase = 2;  // phases 0, 1, 2: the template is checked on one frame in three
constexpr int kTemplateRefreshScore = 55;
constexpr int kTemplateBytesPerPixel = 8;

constexpr int kBonusMinFillRate = 60;
constexpr int kBonusMinDensity = 55;
constexpr int kBonusDensityBase = 20;
constexpr int kBonusDensityDiv = 20;
constexpr int kBonusFillBase = 30;
constexpr int kBonusFillDiv = 30;
constexpr int kMaxScore = 100;
constexpr int kPercent = 100;

constexpr int kMinScoreForMeans = 15;

int32_t RectWidth(const OT_RECT& r) { return Wrap32Sub(r.right, r.left); }
int32_t RectHeight(const OT_RECT& r) { return Wrap32Sub(r.bottom, r.top); }
bool IsEmpty(const OT_RECT& r) { return r.top >= r.bottom || r.left >= r.right; }
int32_t Abs32(int32_t v) { return v < 0 ? Wrap32Neg(v) : v; }

// Mean weight inside r (signed division by its area), 0 for an empty rectangle.
int32_t DensityIn(const uint8_t* weights, int w, int h, const OT_RECT& r) {
  if (IsEmpty(r)) return 0;
  const int32_t sum = static_cast<int32_t>(SumWeightsInRect(weights, w, h, r));
  return Wrap32Div(sum, Wrap32Mul(RectWidth(r), RectHeight(r)));
}

uint8_t* AllocTemplate(int width, int height) {
  const size_t bytes = static_cast<size_t>(static_cast<int64_t>(width) * height) * kTemplateBytesPerPixel;
  return static_cast<uint8_t*>(std::calloc(bytes, 1));
}

// The 2x2 blocks the state projects: the whole frame while lost; while tracking, rcTrack (as the
// previous step left it) grown by its own width and height on every side, clipped to the frame,
// edges rounded down to even; none in any other state.
OT_RECT ProjectionRect(const CMeanShiftTracker* t, int w, int h) {
  constexpr OT_RECT kNone{0, 0, 0, 0};
  if (t->nState == kStateLost) {
    const OT_RECT all{0, 0, w & ~1, h & ~1};
    return all.right < 1 || all.bottom < 1 ? kNone : all;
  }
  if (t->nState != kStateTracking) return kNone;
  const OT_RECT& r = t->rcTrack;
  const int32_t grow_w = RectWidth(r);
  const int32_t grow_h = RectHeight(r);
  const OT_RECT grown{std::max(Wrap32Sub(r.left, grow_w), 0) & ~1, std::max(Wrap32Sub(r.top, grow_h), 0) & ~1,
                      std::min(Wrap32Add(r.right, grow_w), w) & ~1, std::min(Wrap32Add(r.bottom, grow_h), h) & ~1};
  return IsEmpty(grown) ? kNone : grown;
}

struct CandidateScore {
  int s1;
  int s2;
  int Best() const { return std::max(s1, s2); }
};

CandidateScore ScoreCandidate(uint8_t* y, const OT_RECT& rect, int w, int h) {
  CandidateScore c;
  c.s1 = matching_ncc(y, rect, w, h, pObj_window, obj_W, obj_H);
  c.s2 = c.s1 > kCurrentTemplateGoodEnough ? kNoScore
                                           : matching_ncc(y, rect, w, h, pObj_Seg_window, obj_sW, obj_sH);
  return c;
}

void ResetTemplateToSelection() {
  std::free(pObj_window);
  pObj_window = AllocTemplate(obj_sW, obj_sH);
  if (pObj_window != nullptr && pObj_Seg_window != nullptr) {
    std::memcpy(pObj_window, pObj_Seg_window, static_cast<size_t>(static_cast<int64_t>(obj_sH) * obj_sW));
  }
  obj_W = obj_sW;
  obj_H = obj_sH;
}

struct Corner {
  int x, y;
};

// The region size of D_MeanShift_Obj, and the corners derived from it.
struct LostGrid {
  int qW, qH, halfW, halfH;
  LostGrid(int w, int h)
      : qW((w - kGridMargin) / kGridParts), qH((h - kGridMargin) / kGridParts), halfW(w / 2), halfH(h / 2) {}
  Corner Centre() const { return Corner{halfW - qW, halfH - qH}; }
};

// What a wide search from a candidate corner found.
struct Found {
  OT_RECT rect;
  int sum;
};

// Mean shift from each grid corner, ranked by the templates; ties keep the earlier corner.
void SearchGridCorners(CMeanShiftTracker* t, uint8_t* y, const WeightColumnSums& sums, int w, int h,
                       const LostGrid& g, int* best, std::optional<Found>* chosen) {
  if (w < kGridMinSide || h < kGridMinSide) return;
  // At a side of exactly 42 the grid step is 0; advancing by at least 1 keeps the loop finite.
  const int stepX = std::max(g.qW, 1);
  const int stepY = std::max(g.qH, 1);
  for (int y0 = kGridInset; y0 < g.halfH; y0 += stepY) {
    for (int x0 = kGridInset; x0 < g.halfW; x0 += stepX) {
      int sum = 0;
      const OT_RECT rect = WideMeanShift(sums, w, h, x0, y0, &sum, kMeanShiftEps);
      const int s = ScoreCandidate(y, rect, w, h).Best();
      if (s > *best) {
        *best = s;
        *chosen = Found{rect, sum};
        t->rcTrack = rect;
      }
    }
  }
}

// Mean shift from the grid corners and the centre, ranked by the templates; returns the weight sum
// of the final search.
int SearchByTemplates(CMeanShiftTracker* t, uint8_t* y, uint8_t* weights, int w, int h) {
  const LostGrid grid(w, h);
  int best = kNoScore;
  std::optional<Found> chosen;
  // The searches sum large, overlapping windows of the one weight image.
  const WeightColumnSums sums(weights, w, h);
  SearchGridCorners(t, y, sums, w, h, grid, &best, &chosen);

  // The centre candidate always runs; it only has to beat the grid, best is not raised.
  const Corner centre = grid.Centre();
  int centre_sum = 0;
  const OT_RECT centre_rect = WideMeanShift(sums, w, h, centre.x, centre.y, &centre_sum, kMeanShiftEps);
  const CandidateScore centre_score = ScoreCandidate(y, centre_rect, w, h);
  if (centre_score.Best() > best) {
    chosen = Found{centre_rect, centre_sum};
    t->rcTrack = centre_rect;
  }

  // The final search would start where the chosen candidate's did and find the same; without a
  // chosen candidate it starts at (0, 0).
  int sum = 0;
  if (chosen.has_value()) {
    t->rcTrack = chosen->rect;
    sum = chosen->sum;
  } else {
    t->rcTrack = WideMeanShift(sums, w, h, 0, 0, &sum, kMeanShiftEps);
  }
  t->nDensity = DensityIn(weights, w, h, t->rcTrack);

  // With a good current-template score, s2 is not measured at the final rectangle but taken over
  // from the centre candidate; the template reset below compares with that value.
  const int s1 = matching_ncc(y, t->rcTrack, w, h, pObj_window, obj_W, obj_H);
  const int s2 = s1 <= kCurrentTemplateGoodEnough
                     ? matching_ncc(y, t->rcTrack, w, h, pObj_Seg_window, obj_sW, obj_sH)
                     : centre_score.s2;
  score_normcrosscorr = std::max(s1, s2);
  if (s2 > s1) ResetTemplateToSelection();
  return sum;
}

// After a long loss: the densest g_MIN_OBJ_SIZE block in the middle half of the frame.
void SearchByDensestBlock(CMeanShiftTracker* t, const uint8_t* weights, int w, int h) {
  const int m = g_MIN_OBJ_SIZE;
  const int32_t block_area = Wrap32Mul(m, m);
  int best = 0;
  for (int y0 = h >> 2; y0 < 3 * (h >> 2); y0 += kBlockSearchStep) {
    for (int x0 = w >> 2; x0 < 3 * (w >> 2); x0 += kBlockSearchStep) {
      const OT_RECT block = {x0, y0, Wrap32Add(x0, m), Wrap32Add(y0, m)};
      const int avg =
          m < 1 ? 0 : Wrap32Div(static_cast<int32_t>(SumWeightsInRect(weights, w, h, block)), block_area);
      if (avg > best) {
        best = avg;
        t->nDensity = avg;
        t->rcTrack = block;
      }
    }
  }
}

int StepLost(CMeanShiftTracker* t, FrameIntake* intake, uint8_t* y, const WeightImage& image) {
  // The searches read the whole weight image and correlate anywhere in the working image.
  if (intake != nullptr) intake->TakeAll();
  image.Require(OT_RECT{0, 0, image.w, image.h});
  uint8_t* weights = image.px;
  const int w = image.w;
  const int h = image.h;
  t->rcObject = t->rcTrack;
  t->nDensity = 0;
  int sum = 0;
  if (Valid_flg) {
    SearchByDensestBlock(t, weights, w, h);
  } else {
    sum = SearchByTemplates(t, y, weights, w, h);
  }
  g_nRectIndex = -1;
  g_nRectStack = -1;
  g_nMovementStack = 0;
  return sum;
}

void RefreshTemplate(const CMeanShiftTracker* t, const uint8_t* y, int w, int h) {
  const OT_RECT& r = t->rcTrack;
  obj_W = Abs32(RectWidth(r));
  obj_H = Abs32(Wrap32Sub(r.top, r.bottom));
  std::free(pObj_window);
  pObj_window = AllocTemplate(obj_W, obj_H);
  if (pObj_window != nullptr) CropTemplate(y, w, h, r, pObj_window);
}

// The correlation's patch and the template crop lie inside rcTrack when rcTrack lies inside the
// image; otherwise they may read anywhere.
void TakeInTemplateArea(FrameIntake* intake, const OT_RECT& r, int w, int h) {
  if (intake == nullptr) return;
  const bool inside = r.left >= 0 && r.top >= 0 && r.right <= w && r.bottom <= h;
  intake->TakeLuma(inside ? r : OT_RECT{0, 0, w, h});
}

void CheckTemplate(const CMeanShiftTracker* t, FrameIntake* intake, uint8_t* y, int w, int h) {
  if (NCC_cnt != 0) {
    NCC_cnt = NCC_cnt >= kNccLastPhase ? 0 : NCC_cnt + 1;
    return;
  }
  TakeInTemplateArea(intake, t->rcTrack, w, h);
  const int s = matching_ncc(y, t->rcTrack, w, h, pObj_window, obj_W, obj_H);
  score_normcrosscorr = s;
  if (s >= kTemplateRefreshScore) RefreshTemplate(t, y, w, h);
  NCC_cnt = 1;
}

int StepTracking(CMeanShiftTracker* t, FrameIntake* intake, uint8_t* y, const WeightImage& weights) {
  int sum = 0;
  t->rcTrack = FollowWeights(t, weights, &sum, kMeanShiftEps);
  EstimateObjectSize(t, weights);
  CheckTemplate(t, intake, y, weights.w, weights.h);
  Valid_flg = false;
  return sum;
}

void MeasureFillRate(CMeanShiftTracker* t, const WeightImage& weights) {
  const OT_RECT& r = t->rcTrack;
  if (IsEmpty(r)) {
    t->nFillRate = 0;
  } else {
    weights.Require(r);
    const int32_t count = CountWeightsAbove(weights.px, weights.w, weights.h, r, t->nWeightThr);
    t->nFillRate = Wrap32Div(Wrap32Mul(count, kPercent), Wrap32Mul(RectWidth(r), RectHeight(r)));
  }
  if (t->bFirstFrame) {
    t->nInitFillRate = t->nFillRate;
    t->bFirstFrame = false;
  }
}

// A dense, well-filled window earns a few points on top of its correlation score.
void ApplyScoreBonus(const CMeanShiftTracker* t) {
  if (t->nFillRate < kBonusMinFillRate || t->nDensity < kBonusMinDensity) return;
  const int bonus =
      (t->nDensity - kBonusDensityBase) / kBonusDensityDiv + (t->nFillRate - kBonusFillBase) / kBonusFillDiv;
  score_normcrosscorr = std::min(kMaxScore, Wrap32Add(score_normcrosscorr, bonus));
}

void FeedRunningMeans(CMeanShiftTracker* t) {
  if (t->nState != kStateTracking || score_normcrosscorr < kMinScoreForMeans) return;
  const float n = static_cast<float>(t->nAvgCount);
  const float n1 = static_cast<float>(Wrap32Add(t->nAvgCount, 1));
  t->fAvgDensity = (t->fAvgDensity * n + static_cast<float>(t->nDensity)) / n1;
  t->fAvgFillRate = (t->fAvgFillRate * n + static_cast<float>(t->nFillRate)) / n1;
  t->fFillPerDensity = t->fAvgFillRate / t->fAvgDensity;
  t->nAvgCount = Wrap32Add(t->nAvgCount, 1);
}

void KeepRectanglesInside(CMeanShiftTracker* t, int w, int h) {
  // Same size, moved inside; a rectangle larger than the frame ends with a negative left or top.
  t->rcTrack = MoveNoOutofImage_Obj(t->rcTrack, w, h);
  t->nObjW = t->nWinW = RectWidth(t->rcTrack);
  t->nObjH = t->nWinH = RectHeight(t->rcTrack);
  // While weak frames are counted or the object is lost, the reported rectangle stays as it is.
  if (t->nLostCount <= 0) t->rcObject = MoveNoOutofImage_Obj(t->rcObject, w, h);
}

}  // namespace

int Track_YCC420BUNCH_Obj(CMeanShiftTracker* t, uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep) {
  return TrackStep(t, nullptr, y, cbcr, w, h, lineStep);
}

int TrackStep(CMeanShiftTracker* t, FrameIntake* intake, uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep) {
  if (m_nOT < 1) return 0;
  const int64_t pixels = std::max<int64_t>(0, static_cast<int64_t>(w) * h);
  uint8_t* buffer = AllocImage(static_cast<size_t>(pixels), static_cast<size_t>(std::max(w, 0)));
  if (buffer == nullptr) {
    PLOVIX_LOGE("BP mem allocation is failed");
    return 0;
  }
  // Cleared and projected part by part, as the steps below read it.
  WeightProjection projection(buffer, w, h, ProjectionRect(t, w, h), t->histModel, y, cbcr, lineStep, intake);
  const WeightImage weights{buffer, w, h, &projection};

  int sum = 0;
  if (t->nState == kStateLost) {
    sum = StepLost(t, intake, y, weights);
  } else if (t->nState == kStateTracking) {
    sum = StepTracking(t, intake, y, weights);
  }
  MeasureFillRate(t, weights);
  ApplyScoreBonus(t);
  CheckLostObject_Obj(t, buffer, w, h, score_normcrosscorr);
  FeedRunningMeans(t);
  KeepRectanglesInside(t, w, h);

  std::free(buffer);
  return sum;
}
