#include "engine/rect_adjust.h"

#include <algorithm>

#include "image/ot_types.h"
#include "platform/arith.h"
#include "platform/log.h"
#include "tracking/tracker_state.h"

namespace {

constexpr int kSensorWide = 1;
constexpr double kWideAspect = 16.0 / 9.0;
constexpr double kStandardAspect = 4.0 / 3.0;

constexpr int kMinZoomedExtent = 20;
constexpr int kHalfMinZoomedExtent = kMinZoomedExtent / 2;

struct Size {
  int w;
  int h;
};

// The sensor's whole view at the frame's scale: the frame widened or heightened to the aspect.
Size CanvasOf(int w, int h, double aspect) {
  const double ratio = static_cast<double>(w) / static_cast<double>(h);
  if (ratio < aspect) return {TruncToInt(aspect * static_cast<double>(h)), h};
  if (ratio > aspect) return {w, TruncToInt(static_cast<double>(w) / aspect)};
  return {w, h};
}

// Moves one axis from canvas coordinates into a frame centred in a larger canvas. A low edge
// pushed below 0 pins the span at 0; a high edge past the frame pins it at size - 1.
void CanvasToFrame(int* low, int* high, int canvas, int size) {
  if (canvas <= size) return;
  const int extent = Wrap32Sub(*high, *low);
  const int offset = Wrap32Sub(canvas, size) / 2;
  *low = Wrap32Sub(*low, offset);
  if (*low < 0) {
    *low = 0;
    *high = extent;
    return;
  }
  *high = Wrap32Sub(*high, offset);
  // Strict: a high edge equal to the size is kept.
  if (*high > size) {
    *high = Wrap32Sub(size, 1);
    *low = Wrap32Sub(*high, extent);
  }
}

int Scale(double s, int v) { return TruncToInt(s * static_cast<double>(v)); }

int Zoom(int v, int centre, float prevZoom, float curZoom) {
  const float zoomed = static_cast<float>(Wrap32Sub(v, centre)) / prevZoom * curZoom;
  return TruncToInt(zoomed + static_cast<float>(centre));
}

// Unlike IsValidZoomRatio, NaN passes this test; the engine never hands one over.
bool ZoomOutOfRange(float z) { return z < kMinZoomRatio || z > kMaxZoomRatio; }

// Clamps the low edge at 0 and the high edge below size; a span shorter than the minimum extent is
// re-centred at that extent, kept inside the frame.
void FitZoomedAxis(int* low, int* high, int size) {
  *low = std::max(*low, 0);
  if (*high >= size) *high = Wrap32Sub(size, 1);
  if (Wrap32Sub(*high, *low) >= kMinZoomedExtent) return;
  int c = std::max(Wrap32Add(*low, *high) / 2, kHalfMinZoomedExtent);
  if (Wrap32Add(c, kHalfMinZoomedExtent) >= size) c = Wrap32Sub(size, kHalfMinZoomedExtent + 1);
  *low = Wrap32Sub(c, kHalfMinZoomedExtent);
  *high = Wrap32Add(c, kHalfMinZoomedExtent);
}

void LogZoom(float prevZoom, float curZoom, const OT_RECT& from, const OT_RECT& to) {
  PLOVIX_LOGI("ResizeTrackRect prev zr %f -> %f rect%d %d %d %d changed %d %d %d %d", static_cast<double>(prevZoom),
              static_cast<double>(curZoom), from.left, from.right, from.top, from.bottom, to.left, to.right, to.top,
              to.bottom);
}

}  // namespace

void AdjustTrackRect(int sensorType, int prevW, int prevH, int curW, int curH) {
  if (sensorType == kSensorTypeUnknown) return;
  const double aspect = sensorType == kSensorWide ? kWideAspect : kStandardAspect;
  const Size prev = CanvasOf(prevW, prevH, aspect);
  const Size cur = CanvasOf(curW, curH, aspect);
  PLOVIX_LOGE("AdjustTrackRect prev %dx%d->%dx%d, cur %dx%d->%dx%d", prevW, prevH, prev.w, prev.h, curW, curH, cur.w,
              cur.h);

  const OT_RECT old = gMst.rcTrack;
  OT_RECT r = old;
  if (prev.w > prevW) {
    const int shift = Wrap32Sub(prev.w, prevW) / 2;
    r.left = Wrap32Add(r.left, shift);
    r.right = Wrap32Add(r.right, shift);
  }
  if (prev.h > prevH) {
    const int shift = Wrap32Sub(prev.h, prevH) / 2;
    r.top = Wrap32Add(r.top, shift);
    r.bottom = Wrap32Add(r.bottom, shift);
  }

  const double sx = static_cast<double>(cur.w) / static_cast<double>(prev.w);
  const double sy = static_cast<double>(cur.h) / static_cast<double>(prev.h);
  r = {Scale(sx, r.left), Scale(sy, r.top), Scale(sx, r.right), Scale(sy, r.bottom)};

  CanvasToFrame(&r.left, &r.right, cur.w, curW);
  CanvasToFrame(&r.top, &r.bottom, cur.h, curH);

  PLOVIX_LOGE("AdjustTrackRect prev rect%d %d %d %d changed %d %d %d %d", old.left, old.right, old.top, old.bottom,
              r.left, r.right, r.top, r.bottom);
  gMst.rcTrack = r;
}

int ResizeTrackRect(float prevZoom, float curZoom, int width, int height) {
  if (ZoomOutOfRange(prevZoom) || ZoomOutOfRange(curZoom)) {
    PLOVIX_LOGE("ResizeTrackRect error zoomRatio %f %f", static_cast<double>(prevZoom), static_cast<double>(curZoom));
    return -1;
  }
  const int hx = width / 2;
  const int hy = height / 2;
  const OT_RECT old = gMst.rcTrack;
  OT_RECT r = {Zoom(old.left, hx, prevZoom, curZoom), Zoom(old.top, hy, prevZoom, curZoom),
               Zoom(old.right, hx, prevZoom, curZoom), Zoom(old.bottom, hy, prevZoom, curZoom)};

  // A right edge past the width is not refused here: it is clamped below.
  const bool outOfBox = r.top > r.bottom || r.left > r.right || r.bottom >= height || r.left >= width ||
                        r.bottom < 0 || r.right < 0;
  if (outOfBox) {
    LogZoom(prevZoom, curZoom, old, r);
    PLOVIX_LOGE("ResizeTrackRect result out of box, so tracking will be stopped");
    return 1;
  }

  FitZoomedAxis(&r.left, &r.right, width);
  FitZoomedAxis(&r.top, &r.bottom, height);
  LogZoom(prevZoom, curZoom, old, r);
  gMst.rcTrack = r;
  return 0;
}
