#include "tracking/mean_shift.h"

#include <algorithm>
#include <cstdlib>

#include "model/region.h"
#include "model/weight_column_sums.h"
#include "model/weight_image.h"
#include "platform/arith.h"

namespace {

// The wide search covers a (w - 40) / 3 * 2 by (h - 40) / 3 * 2 region from its start corner.
constexpr int kSearchMargin = 40;
constexpr int kSearchParts = 3;
constexpr int kMinSearchExtent = 10;  // a wide-search window never gets narrower or lower

struct Centroid {
  int32_t x;
  int32_t y;
  uint64_t sum;
};

// Weighted centre of window from its moments, rounded to the nearest pixel. An empty or weightless
// window has its own centre.
Centroid CentroidOf(const WeightMoments& m, OT_RECT win) {
  if (m.sum == 0) return Centroid{Wrap32Add(win.left, win.right) >> 1, Wrap32Add(win.top, win.bottom) >> 1, 0};
  // Negative columns (wide search on small images) wrap the unsigned sums; the centre keeps the
  // low 32 bits of the quotient.
  const uint64_t half = m.sum / 2;
  return Centroid{static_cast<int32_t>((m.sumX + half) / m.sum), static_cast<int32_t>((m.sumY + half) / m.sum), m.sum};
}

OT_RECT ShiftRect(OT_RECT r, int32_t dx, int32_t dy) {
  return OT_RECT{Wrap32Add(r.left, dx), Wrap32Add(r.top, dy), Wrap32Add(r.right, dx), Wrap32Add(r.bottom, dy)};
}

int64_t Distance(int32_t a, int32_t b) { return std::llabs(int64_t{a} - b); }

OT_RECT ClipToImage(OT_RECT r, int w, int h) {
  r.left = std::max(r.left, 0);
  r.top = std::max(r.top, 0);
  r.right = std::min(std::max(r.right, 0), w);
  r.bottom = std::min(std::max(r.bottom, 0), h);
  return r;
}

OT_RECT RectAroundCentre(int32_t cx, int32_t cy, int32_t width, int32_t height) {
  const int32_t hw = width >> 1;
  const int32_t hh = height >> 1;
  return OT_RECT{Wrap32Sub(cx, hw), Wrap32Sub(cy, hh), Wrap32Add(cx, hw), Wrap32Add(cy, hh)};
}

// One axis of the wide search's window: clamp into [lo, hi), then keep at least 10 pixels,
// anchored at whichever region edge the window lies against.
void ClampSearchAxis(int32_t* first, int32_t* last, int32_t lo, int32_t hi) {
  *first = std::max(*first, lo);
  *last = std::min(*last, hi);
  const int32_t extent = Wrap32Sub(*last, *first);
  if (*first == lo && extent < kMinSearchExtent) *last = Wrap32Add(*first, kMinSearchExtent);
  if (extent < kMinSearchExtent && *last == hi) *first = Wrap32Sub(*last, kMinSearchExtent);
}

// The wide search over a fixed region from corner (x0, y0); momentsOf(window) sums the weights.
template <typename MomentsOf>
OT_RECT WideSearch(int w, int h, int x0, int y0, int* outSum, int eps, MomentsOf momentsOf) {
  const int32_t qW = Wrap32Sub(w, kSearchMargin) / kSearchParts;
  const int32_t qH = Wrap32Sub(h, kSearchMargin) / kSearchParts;
  const int32_t regionRight = Wrap32Add(x0, Wrap32Mul(2, qW));
  const int32_t regionBottom = Wrap32Add(y0, Wrap32Mul(2, qH));
  OT_RECT win{x0, y0, regionRight, regionBottom};
  int32_t cx = Wrap32Add(x0, qW);
  int32_t cy = Wrap32Add(y0, qH);

  Centroid c{cx, cy, 0};
  for (int k = 0;; ++k) {
    ClampSearchAxis(&win.left, &win.right, x0, regionRight);
    ClampSearchAxis(&win.top, &win.bottom, y0, regionBottom);
    c = CentroidOf(momentsOf(win), win);
    // Non-strict, unlike the tracking search: the two searches converge differently on purpose.
    if (Distance(cx, c.x) <= eps && Distance(cy, c.y) <= eps) break;
    if (k >= kMeanShiftMaxIterations) break;
    win = ShiftRect(win, Wrap32Sub(c.x, cx), Wrap32Sub(c.y, cy));
    cx = c.x;
    cy = c.y;
  }
  *outSum = static_cast<int32_t>(c.sum);
  OT_RECT result = RectAroundCentre(c.x, c.y, obj_W, obj_H);
  result.left = std::max(result.left, 0);
  result.top = std::max(result.top, 0);
  result.right = std::min(result.right, w);
  result.bottom = std::min(result.bottom, h);
  return result;
}

}  // namespace

OT_RECT MeanShift_Obj(CMeanShiftTracker* t, uint8_t* weights, int w, int h, int* outSum, int eps) {
  return FollowWeights(t, WeightImage{weights, w, h}, outSum, eps);
}

OT_RECT FollowWeights(CMeanShiftTracker* t, const WeightImage& weights, int* outSum, int eps) {
  const int w = weights.w;
  const int h = weights.h;
  const OT_RECT& track = t->rcTrack;
  int32_t cx = Wrap32Add(track.left, track.right) >> 1;
  int32_t cy = Wrap32Add(track.top, track.bottom) >> 1;
  OT_RECT win = track;
  if (t->nWinW != t->nObjW) win = RectAroundCentre(cx, cy, t->nWinW, t->nWinH);

  Centroid c{cx, cy, 0};
  for (int k = 0;; ++k) {
    // Clipped in place, so a window that touched the border stays smaller from then on.
    win = ClipToImage(win, w, h);
    weights.Require(win);
    c = CentroidOf(MomentsInRect(weights.px, w, h, win), win);
    if (Distance(cx, c.x) < eps && Distance(cy, c.y) < eps) break;
    if (k >= kMeanShiftMaxIterations) break;
    win = ShiftRect(win, Wrap32Sub(c.x, cx), Wrap32Sub(c.y, cy));
    cx = c.x;
    cy = c.y;
  }
  *outSum = static_cast<int32_t>(c.sum);
  // Shifted, not shrunk: a rectangle larger than the image keeps a negative left or top.
  return MoveNoOutofImage_Obj(RectAroundCentre(c.x, c.y, t->nObjW, t->nObjH), w, h);
}

OT_RECT D_MeanShift_Obj(CMeanShiftTracker* /*t*/, uint8_t* weights, int w, int h, int x0, int y0, int* outSum,
                        int eps) {
  return WideSearch(w, h, x0, y0, outSum, eps, [&](OT_RECT win) { return MomentsInRect(weights, w, h, win); });
}

OT_RECT WideMeanShift(const WeightColumnSums& sums, int w, int h, int x0, int y0, int* outSum, int eps) {
  return WideSearch(w, h, x0, y0, outSum, eps, [&](OT_RECT win) { return sums.Moments(win); });
}
