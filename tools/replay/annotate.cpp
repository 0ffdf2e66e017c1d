#include "annotate.h"

#include <algorithm>
#include <cmath>

#include "drawing.h"

namespace plovix_replay {
namespace {

constexpr int kLinesPerThicknessStep = 360;  // box lines 1 px thick up to 360 lines, 3 at 1080
constexpr int kLinesPerTextStep = 360;

const Yuv kMeasured = YuvFromRgb(0, 230, 0);
const Yuv kPredicted = YuvFromRgb(255, 0, 255);
const Yuv kBanner = YuvFromRgb(16, 16, 16);
const Yuv kTouch = YuvFromRgb(255, 255, 0);

Yuv StateColour(const FrameResult& r) {
  if (r.ret != 0) return YuvFromRgb(255, 40, 40);
  switch (r.record.nTrackState) {
    case PLOVIX_STATE_TRACKING:
      return kMeasured;
    case PLOVIX_STATE_TEMP_LOST:
      return YuvFromRgb(255, 160, 0);
    default:
      return YuvFromRgb(170, 170, 170);
  }
}

// Far enough outside any frame that clipping handles it, small enough for pixel arithmetic.
constexpr double kCoordinateLimit = 1e6;

int RoundToInt(double v) {
  return static_cast<int>(std::lround(std::clamp(v, -kCoordinateLimit, kCoordinateLimit)));
}

void DrawTouch(const FrameResult& r, int scale, Picture* out) {
  const int x = RoundToInt(FocusToPixel(r.record.nRequestX, out->width));
  const int y = RoundToInt(FocusToPixel(r.record.nRequestY, out->height));
  const int arm = 12 * scale;
  FillRect(out, x - arm, y - scale, x + arm + 1, y + scale + 1, kTouch);
  FillRect(out, x - scale, y - arm, x + scale + 1, y + arm + 1, kTouch);
}

}  // namespace

PixelBox BoxToPixels(int left, int right, int top, int bottom, int width, int height) {
  return {RoundToInt(FocusToPixel(left, width)), RoundToInt(FocusToPixel(top, height)),
          RoundToInt(FocusToPixel(right, width)), RoundToInt(FocusToPixel(bottom, height))};
}

bool HasBox(const FrameResult& r) {
  return r.ret == 0 && (r.record.nTrackState == PLOVIX_STATE_TRACKING ||
                        r.record.nTrackState == PLOVIX_STATE_TEMP_LOST);
}

const char* StateName(const FrameResult& r) {
  if (r.ret != 0) return "REFUSED";
  switch (r.record.nTrackState) {
    case PLOVIX_STATE_NOT_TRACKING:
      return "NOT TRACKING";
    case PLOVIX_STATE_TRACKING:
      return "TRACKING";
    case PLOVIX_STATE_TEMP_LOST:
      return "TEMP LOST";
    default:
      return "STATE ?";
  }
}

void DrawMarks(const FrameResult& r, Picture* p) {
  const int thickness = std::max(1, p->height / kLinesPerThicknessStep);
  if (HasBox(r)) {
    const PlovixStruct& rec = r.record;
    const PixelBox pr = BoxToPixels(rec.nPredictLeft, rec.nPredictRight, rec.nPredictTop,
                                    rec.nPredictBottom, p->width, p->height);
    DrawBox(p, pr.left, pr.top, pr.right, pr.bottom, thickness, kPredicted);
    const PixelBox m =
        BoxToPixels(rec.nLeft, rec.nRight, rec.nTop, rec.nBottom, p->width, p->height);
    DrawBox(p, m.left, m.top, m.right, m.bottom, thickness, kMeasured);
  }
  if (r.touched) DrawTouch(r, thickness, p);
}

void DrawBanner(const FrameResult& r, int scale, bool legend, Picture* out) {
  const std::string label = "#" + std::to_string(r.index) + " " + StateName(r);
  const std::string legendA = "MEASURED";
  const std::string legendB = "PREDICTED";
  const int pad = 3 * scale;
  const int lineHeight = (kGlyphHeight + 3) * scale;
  if (!legend) {
    FillRect(out, 0, 0, TextWidth(label, scale) + 2 * pad, lineHeight + pad, kBanner);
    DrawText(out, pad, pad, scale, label, StateColour(r));
    return;
  }
  const int width = std::max(TextWidth(label, scale), TextWidth(legendA + " " + legendB, scale));
  FillRect(out, 0, 0, width + 2 * pad, 2 * lineHeight + pad, kBanner);
  DrawText(out, pad, pad, scale, label, StateColour(r));
  DrawText(out, pad, pad + lineHeight, scale, legendA, kMeasured);
  DrawText(out, pad + TextWidth(legendA + " ", scale), pad + lineHeight, scale, legendB,
           kPredicted);
}

void AnnotateFrame(const FrameResult& r, const Picture& fed, Picture* out) {
  *out = fed;
  DrawMarks(r, out);
  DrawBanner(r, std::max(1, out->height / kLinesPerTextStep), true, out);
}

}  // namespace plovix_replay
