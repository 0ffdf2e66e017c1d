#include "model/object_size.h"

#include <algorithm>
#include <cstdlib>

#include "model/model_state.h"
#include "model/region.h"
#include "model/weight_image.h"
#include "platform/arith.h"

namespace {

constexpr double kSizeStepRate = 0.05;
constexpr int32_t kMaxSizeStep = 2;
constexpr int32_t kPercent = 100;
constexpr int32_t kGrowAboveRate = 25;
constexpr uint32_t kShrinkRateSpan = 18;  // rates 1..19 shrink; 0 wraps to a huge unsigned value

constexpr int kHistorySlots = 3;
constexpr int kMaxMovementStack = 3;
constexpr int32_t kMoveDistance = 25;       // a centre shift beyond this is a movement
constexpr int32_t kSameColumnDistance = 3;  // against the oldest entry: |dx| < 3 ...
constexpr int32_t kSameRowDistance = 2;     // ... counts as movement only if |dy| > 2
constexpr int kReversal = 2;

int32_t Width(const OT_RECT& r) { return Wrap32Sub(r.right, r.left); }
int32_t Height(const OT_RECT& r) { return Wrap32Sub(r.bottom, r.top); }
int32_t Area(const OT_RECT& r) { return Wrap32Mul(Height(r), Width(r)); }
int32_t CentreX(const OT_RECT& r) { return Wrap32Add(r.left, r.right) >> 1; }
int32_t CentreY(const OT_RECT& r) { return Wrap32Add(r.top, r.bottom) >> 1; }
int64_t Distance(int32_t a, int32_t b) { return std::llabs(int64_t{a} - b); }

bool IsEmpty(const OT_RECT& r) { return r.top >= r.bottom || r.left >= r.right; }

int64_t SumIn(const WeightImage& weights, const OT_RECT& r) {
  weights.Require(r);
  return SumWeightsInRect(weights.px, weights.w, weights.h, r);
}

void MeasureDensity(CMeanShiftTracker* t, const WeightImage& weights) {
  const int32_t sum = static_cast<int32_t>(SumIn(weights, t->rcTrack));
  t->nDensity = Wrap32Div(sum, Area(t->rcTrack));
}

// Mean weight of the ring of half the rectangle's size around it, clipped to the image.
int32_t RingMean(const WeightImage& weights, const OT_RECT& r) {
  const int w = weights.w;
  const int h = weights.h;
  const int32_t hw = Width(r) >> 1;
  const int32_t hh = Height(r) >> 1;
  const OT_RECT outer{std::max(Wrap32Sub(r.left, hw), 0), std::max(Wrap32Sub(r.top, hh), 0),
                      std::min(Wrap32Add(r.right, hw), w), std::min(Wrap32Add(r.bottom, hh), h)};
  const OT_RECT bands[] = {
      {outer.left, outer.top, outer.right, r.top},
      {outer.left, r.bottom, outer.right, outer.bottom},
      {outer.left, r.top, r.left, r.bottom},
      {r.right, r.top, outer.right, r.bottom},
  };
  int32_t sum = 0;
  int32_t area = 0;
  for (const OT_RECT& band : bands) {
    if (IsEmpty(band)) continue;
    sum = Wrap32Add(sum, static_cast<int32_t>(SumIn(weights, band)));
    area = Wrap32Add(area, Area(band));
  }
  return Wrap32Div(sum, area);
}

// Fixed once per selection, halfway between the object's and its surroundings' mean weight.
int32_t WeightThreshold(CMeanShiftTracker* t, const WeightImage& weights) {
  if (t->nInitDensity != 0) return t->nWeightThr;
  const int32_t threshold = Wrap32Add(RingMean(weights, t->rcTrack), t->nDensity) / 2;
  t->nInitDensity = t->nDensity;
  t->nWeightThr = threshold;
  return threshold;
}

int32_t SizeStep(int32_t extent) {
  const int32_t step = TruncToInt(static_cast<double>(extent) * kSizeStepRate);
  if (step == 0) return 1;
  return step > 1 ? kMaxSizeStep : step;
}

struct Candidate {
  OT_RECT clipped;
  bool valid;
  int32_t count;
  int32_t area;
};

// An invalid candidate counts -1 pixels over its clipped area; the band rates use both as they are.
Candidate Evaluate(const WeightImage& weights, OT_RECT r, int threshold) {
  const int w = weights.w;
  const int h = weights.h;
  const OT_RECT clipped{std::max(r.left, 0), std::max(r.top, 0), std::min(r.right, w), std::min(r.bottom, h)};
  const bool valid = ValidRectangle_Obj(w, h, clipped);
  if (valid) weights.Require(clipped);
  const int32_t count = valid ? CountWeightsAbove(weights.px, w, h, clipped, threshold) : -1;
  return Candidate{clipped, valid, count, Area(clipped)};
}

// Percentage of the band between two candidates whose weight is above the threshold.
int32_t BandRate(const Candidate& current, const Candidate& other) {
  const int32_t bandArea = Wrap32Sub(current.area, other.area);
  if (bandArea == 0) return 0;
  return Wrap32Div(Wrap32Mul(Wrap32Sub(current.count, other.count), kPercent), bandArea);
}

// One position of the history relative to the next newer one: +1 / -1 for the direction the
// edge sum moved, 2 once the direction has reversed.
int NextAxisCode(int code, int32_t older, int32_t newer) {
  if (code == 1 && older < newer) return kReversal;
  if (code == -1 && older > newer) return kReversal;
  if (code == 0) return older > newer ? 1 : (older < newer ? -1 : 0);
  return code;
}

bool AxisReversed(int32_t sR, int32_t sA, int32_t sB, int32_t sC) {
  int code = sA > sR ? 1 : (sA < sR ? -1 : 0);
  code = NextAxisCode(code, sB, sA);
  code = NextAxisCode(code, sC, sB);
  return code == kReversal;
}

int32_t SumX(const OT_RECT& r) { return Wrap32Add(r.left, r.right); }
int32_t SumY(const OT_RECT& r) { return Wrap32Add(r.top, r.bottom); }

// With a full history and a small shift: a centre that went one way and came back, or that
// stays near the oldest entry, is jitter rather than movement.
bool MovedDespiteSmallShift(const OT_RECT& r) {
  const OT_RECT& a = g_RectShowbox[g_nRectIndex];
  const OT_RECT& b = g_RectShowbox[(g_nRectIndex + 2) % kHistorySlots];
  const OT_RECT& c = g_RectShowbox[(g_nRectIndex + 1) % kHistorySlots];
  const bool reversed = AxisReversed(SumX(r), SumX(a), SumX(b), SumX(c)) ||
                        AxisReversed(SumY(r), SumY(a), SumY(b), SumY(c));
  bool moved = !reversed;
  if (Distance(CentreX(r), CentreX(c)) < kSameColumnDistance) {
    moved = moved && Distance(CentreY(r), CentreY(c)) > kSameRowDistance;
  }
  return moved;
}

void UpdateHistory(CMeanShiftTracker* t, const OT_RECT& r) {
  // Selection and the lost search empty the history (index -1): the next result is reported as is.
  if (g_nRectIndex < 0 || g_nRectIndex >= kHistorySlots) {
    g_nRectIndex = 0;
    g_RectShowbox[0] = r;
    g_nRectStack = 1;
    t->rcObject = r;
    return;
  }
  const OT_RECT& newest = g_RectShowbox[g_nRectIndex];
  const bool smallShift = Distance(CentreX(newest), CentreX(r)) <= kMoveDistance &&
                          Distance(CentreY(newest), CentreY(r)) <= kMoveDistance;
  bool moved = !smallShift;
  if (g_nRectStack == kHistorySlots && smallShift) moved = MovedDespiteSmallShift(r);

  g_nRectIndex = (g_nRectIndex + 1) % kHistorySlots;
  g_RectShowbox[g_nRectIndex] = r;
  g_nRectStack = std::min(g_nRectStack + 1, kHistorySlots);

  if (moved) {
    g_nMovementStack = std::min(g_nMovementStack + 1, kMaxMovementStack);
    t->rcObject = r;
  } else if (g_nMovementStack >= 1) {
    --g_nMovementStack;
    t->rcObject = r;
  }
}

}  // namespace

void GetObjectSize_Obj(CMeanShiftTracker* tracker, uint8_t* weights, int w, int h) {
  EstimateObjectSize(tracker, WeightImage{weights, w, h});
}

OT_RECT GetSizeVH(uint8_t* weights, int w, int h, OT_RECT rect, int threshold, bool vertical, bool horizontal) {
  return SizeVH(WeightImage{weights, w, h}, rect, threshold, vertical, horizontal);
}

void EstimateObjectSize(CMeanShiftTracker* tracker, const WeightImage& weights) {
  MeasureDensity(tracker, weights);
  const int32_t threshold = WeightThreshold(tracker, weights);
  OT_RECT r = SizeVH(weights, tracker->rcTrack, threshold, true, false);
  r = SizeVH(weights, r, threshold, false, true);
  UpdateHistory(tracker, r);
  tracker->rcTrack = r;
}

OT_RECT SizeVH(const WeightImage& weights, OT_RECT rect, int threshold, bool vertical, bool horizontal) {
  const int32_t stepX = SizeStep(Width(rect));
  const int32_t stepY = SizeStep(Height(rect));
  OT_RECT inner = rect;
  OT_RECT outer = rect;
  if (vertical) {
    inner.top = Wrap32Add(rect.top, stepY);
    inner.bottom = Wrap32Sub(rect.bottom, stepY);
    outer.top = Wrap32Sub(rect.top, stepY);
    outer.bottom = Wrap32Add(rect.bottom, stepY);
  }
  if (horizontal) {
    inner.left = Wrap32Add(rect.left, stepX);
    inner.right = Wrap32Sub(rect.right, stepX);
    outer.left = Wrap32Sub(rect.left, stepX);
    outer.right = Wrap32Add(rect.right, stepX);
  }
  const Candidate in = Evaluate(weights, inner, threshold);
  const Candidate cur = Evaluate(weights, rect, threshold);
  const Candidate out = Evaluate(weights, outer, threshold);

  // Growth wins over shrinking, and an empty band (rate 0) deliberately does not shrink.
  if (out.valid && BandRate(cur, out) > kGrowAboveRate) return out.clipped;
  const uint32_t shrinkRate = static_cast<uint32_t>(BandRate(cur, in));
  if (in.valid && shrinkRate - 1u <= kShrinkRateSpan) return in.clipped;
  return rect;
}
