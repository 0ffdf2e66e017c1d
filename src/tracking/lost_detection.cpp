#include "tracking/lost_detection.h"

#include <algorithm>

#include "platform/arith.h"
#include "platform/clock.h"

namespace {

constexpr int kStateTracking = 0;
constexpr int kStateLost = 1;
constexpr int kFramesToSwitch = 5;  // consecutive weak (or valid) frames that change the state

// Frames in the lost state after which the candidate test drops the score and turns strict.
constexpr int kValidCountFlagAt = 99;
constexpr int kValidCountFlagged = 100;

constexpr int kMinCandidateQuality = 15;  // "quality > 14"

struct ThresholdRule {
  double meanFactor;
  int densityCap;  // also the replacement of a zero density threshold
  int fillCap;
};
constexpr ThresholdRule kLostRule{0.75, 5, 5};
constexpr ThresholdRule kCandidateRule{0.9, 25, 30};

// Fixed thresholds of the exported variants.
constexpr int kFixedLostDensity = 5;
constexpr int kFixedLostFill = 5;
constexpr int kFixedCandidateDensity = 26;
constexpr int kFixedCandidateFill = 31;
constexpr int kFixedStrictDensity = 35;
constexpr int kFixedStrictFill = 40;

struct Thresholds {
  int density;
  int fill;
};

// Derived from the object's own history, capped. The mean products are taken in double from the
// float fields, the fill-per-density products in single precision; a NaN or infinite
// fFillPerDensity goes through the saturating conversion and is meant to.
Thresholds DeriveThresholds(const CMeanShiftTracker& t, const ThresholdRule& rule) {
  const int d = std::min({TruncToInt(static_cast<double>(t.fAvgDensity) * rule.meanFactor), rule.densityCap,
                          t.nInitDensity});
  int f = std::min({TruncToInt(static_cast<double>(t.fAvgFillRate) * rule.meanFactor), rule.fillCap,
                    t.nInitFillRate});
  if (t.fFillPerDensity != 0.0f) f = std::min(f, TruncToInt(t.fFillPerDensity * static_cast<float>(d)));
  const int densityUse = d == 0 ? rule.densityCap : d;
  if (f == 0) f = TruncToInt(t.fFillPerDensity * static_cast<float>(densityUse));
  return Thresholds{densityUse, f};
}

bool IsWeakFrame(const CMeanShiftTracker& t) {
  const Thresholds th = DeriveThresholds(t, kLostRule);
  return t.nFillRate < th.fill && t.nDensity < th.density;
}

// Lost long enough: the comparisons turn strict and the score is no longer asked for.
bool IsValidCandidate(const CMeanShiftTracker& t, int quality) {
  const Thresholds th = DeriveThresholds(t, kCandidateRule);
  if (Valid_cnt <= kValidCountFlagAt) {
    return t.nFillRate >= th.fill && t.nDensity >= th.density && quality >= kMinCandidateQuality;
  }
  return t.nFillRate > th.fill && t.nDensity > th.density;
}

void UpdateTracking(CMeanShiftTracker* t) {
  if (!IsWeakFrame(*t)) {
    t->nLostCount = 0;
    t->llLostTimeMs = 0;
    return;
  }
  const int previous = t->nLostCount;
  t->nLostCount = Wrap32Add(previous, 1);
  if (previous >= kFramesToSwitch - 1) {
    t->nFoundCount = 0;
    t->nState = kStateLost;
    t->llLostTimeMs = CurrentTimeMs();
  }
}

void CountLostFrame() {
  if (Valid_cnt == kValidCountFlagAt) {
    Valid_cnt = kValidCountFlagged;
    Valid_flg = true;
  } else {
    Valid_cnt = Wrap32Add(Valid_cnt, 1);
  }
}

void Recover(CMeanShiftTracker* t) {
  t->nState = kStateTracking;
  t->llLostTimeMs = 0;
  t->nLostCount = 0;
  t->nFoundCount = 0;
  Valid_cnt = 0;
  Valid_flg = false;
}

void UpdateLost(CMeanShiftTracker* t, int quality) {
  const bool valid = IsValidCandidate(*t, quality);
  CountLostFrame();
  if (!valid) {
    t->nLostCount = Wrap32Add(t->nLostCount, 1);
    t->nFoundCount = 0;
    return;
  }
  const int previous = t->nFoundCount;
  t->nFoundCount = Wrap32Add(previous, 1);
  if (previous >= kFramesToSwitch - 1) Recover(t);
}

}  // namespace

void CheckLostObject_Obj(CMeanShiftTracker* t, uint8_t* /*weights*/, int /*w*/, int /*h*/, int quality) {
  if (t->nState == kStateTracking) {
    UpdateTracking(t);
  } else if (t->nState == kStateLost) {
    UpdateLost(t, quality);
  }
}

int CheckLostTracking_Obj_AT(CMeanShiftTracker* t, int /*ignored*/) { return IsWeakFrame(*t) ? 1 : 0; }

int CheckValidCandidate_Obj_AT(CMeanShiftTracker* t, int quality) {
  const bool valid = IsValidCandidate(*t, quality);
  if (Valid_cnt == kValidCountFlagAt) Valid_flg = true;
  return valid ? 1 : 0;
}

int CheckLostTracking_Obj(int density, int fillRate, int /*ignored*/) {
  return (density < kFixedLostDensity && fillRate < kFixedLostFill) ? 1 : 0;
}

int CheckValidCandidate_Obj(int density, int fillRate, int quality) {
  int result;
  if (Valid_cnt <= kValidCountFlagAt) {
    const bool denseEnough = density >= kFixedCandidateDensity;
    const bool filledEnough = fillRate >= kFixedCandidateFill;
    if (denseEnough && filledEnough) {
      result = 1;
    } else if (!denseEnough && !filledEnough) {
      result = 0;
    } else {
      result = quality >= kMinCandidateQuality ? 1 : 0;
    }
    if (Valid_cnt == kValidCountFlagAt) Valid_flg = true;
  } else {
    result = (density > kFixedStrictDensity && fillRate > kFixedStrictFill) ? 1 : 0;
  }
  return result;
}
