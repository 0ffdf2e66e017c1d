#include "model/selection.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>

#include "engine/tuning.h"
#include "image/segmentation.h"
#include "model/histogram.h"
#include "model/model_state.h"
#include "model/region.h"
#include "platform/arith.h"
#include "platform/memory.h"
#include "tracking/tracker_state.h"

namespace {

constexpr double kTooLargeShare = 0.7;
constexpr uint8_t kMaskObject = 255;
// Template buffers are eight times the bytes they use; the per-frame step allocates its refreshes
// the same way.
constexpr uint64_t kTemplateAllocFactor = 8;

int32_t Abs32(int32_t v) { return v < 0 ? Wrap32Neg(v) : v; }

// Rejects only an object wider than 70 % of the frame AND higher than 70 % of it.
bool TooLargeInBothDimensions(int w, int h, OT_RECT r) {
  const double width = Abs32(Wrap32Sub(r.right, r.left));
  const double height = Abs32(Wrap32Sub(r.bottom, r.top));
  return static_cast<double>(w) * kTooLargeShare < width && static_cast<double>(h) * kTooLargeShare < height;
}

// The touched square always belongs to the object, whatever the segmentation found.
void MarkTouchSquare(uint8_t* mask, int w, int h, int x, int y) {
  const int half = g_MIN_OBJ_SIZE_HALF;
  const int rowFrom = std::max(Wrap32Sub(y, half), 0);
  const int rowTo = std::min(Wrap32Add(y, half), h);
  const int colFrom = std::max(Wrap32Sub(x, half), 0);
  const int colTo = std::min(Wrap32Add(x, half), w);
  if (colFrom >= colTo) return;
  for (int row = rowFrom; row < rowTo; ++row) {
    std::memset(mask + static_cast<ptrdiff_t>(row) * w + colFrom, kMaskObject, static_cast<size_t>(colTo - colFrom));
  }
}

// Both bounds act about the touch point, not about the segment's centre.
OT_RECT BoundAboutTouch(OT_RECT r, int x, int y) {
  const int halfMax = g_MAX_OBJ_SIZE >> 1;
  r.left = std::max(r.left, Wrap32Sub(x, halfMax));
  r.right = std::min(r.right, Wrap32Add(x, halfMax));
  r.top = std::max(r.top, Wrap32Sub(y, halfMax));
  r.bottom = std::min(r.bottom, Wrap32Add(y, halfMax));

  const int minSize = g_MIN_OBJ_SIZE;
  const int halfMin = minSize >> 1;
  if (Wrap32Sub(r.right, r.left) < minSize) {
    r.left = Wrap32Sub(x, halfMin);
    r.right = Wrap32Add(x, halfMin);
  }
  if (Wrap32Sub(r.bottom, r.top) < minSize) {
    r.top = Wrap32Sub(y, halfMin);
    r.bottom = Wrap32Add(y, halfMin);
  }
  return r;
}

// Grows the rectangle to even edges (bit 0 in two's complement, so -1 becomes -2).
OT_RECT GrowToEvenEdges(OT_RECT r) {
  if (r.left & 1) r.left = Wrap32Sub(r.left, 1);
  if (r.right & 1) r.right = Wrap32Add(r.right, 1);
  if (r.top & 1) r.top = Wrap32Sub(r.top, 1);
  if (r.bottom & 1) r.bottom = Wrap32Add(r.bottom, 1);
  return r;
}

bool IsWholeFrame(OT_RECT r, int w, int h) { return r.left == 0 && r.top == 0 && r.right == w && r.bottom == h; }

uint8_t* AllocTemplate(int32_t width, int32_t height) {
  const uint64_t bytes = static_cast<uint64_t>(width) * static_cast<uint64_t>(height) * kTemplateAllocFactor;
  return AllocZeroedImage(static_cast<size_t>(bytes), static_cast<size_t>(width));
}

// Both templates from the tracker's current rectangle; the current one starts as a copy of the
// selection one.
void CropBothTemplates(const uint8_t* luma, int w, int h) {
  const OT_RECT rect = gMst.rcTrack;
  const int32_t width = Abs32(Wrap32Sub(rect.right, rect.left));
  const int32_t height = Abs32(Wrap32Sub(rect.top, rect.bottom));
  obj_W = obj_sW = width;
  obj_H = obj_sH = height;

  std::free(pObj_Seg_window);
  pObj_Seg_window = AllocTemplate(width, height);
  if (pObj_Seg_window != nullptr) CropTemplate(luma, w, h, rect, pObj_Seg_window);

  std::free(pObj_window);
  pObj_window = AllocTemplate(width, height);
  if (pObj_window != nullptr && pObj_Seg_window != nullptr) {
    std::memcpy(pObj_window, pObj_Seg_window, static_cast<size_t>(width) * static_cast<size_t>(height));
  }
}

void ResetTrackingCounters() {
  Valid_flg = false;
  Valid_cnt = 0;
  NCC_cnt = 0;
  g_nRectIndex = -1;
  g_nRectStack = -1;
  g_nMovementStack = 0;
}

void InitTrackerRect(OT_RECT rect) {
  gMst.rcTrack = rect;
  gMst.nObjW = gMst.nWinW = Wrap32Sub(rect.right, rect.left);
  gMst.nObjH = gMst.nWinH = Wrap32Sub(rect.bottom, rect.top);
  gMst.bFirstFrame = true;
}

// rcObject, rcLastGood, nWeightThr and nFillRate stay: the first step and the driver overwrite them,
// and nInitDensity 0 makes the first size estimation recompute the threshold.
void ResetTrackerCounters() {
  gMst.nDensity = 0;
  gMst.nInitDensity = 0;
  gMst.nLostCount = 0;
  gMst.nFoundCount = 0;
  gMst.nState = 0;
  gMst.llLostTimeMs = 0;
  gMst.fAvgDensity = 0.0f;
  gMst.fAvgFillRate = 0.0f;
  gMst.fFillPerDensity = 0.0f;
  gMst.nAvgCount = 0;
  gMst.nInitFillRate = 0;
}

void BuildObjectModel(uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep, OT_RECT rect, uint8_t* mask) {
  if (mask == nullptr) {
    SetModelRect_YCC420BUNCH_Obj(gMst.histModel, y, cbcr, w, h, lineStep, rect);
  } else {
    SetModelMaskedRect_YCC420BUNCH_Obj(gMst.histModel, y, cbcr, w, h, lineStep, rect, mask);
  }
}

// Packs the rows of rect (ordered, inside the source) into dst.
void CopyRows(const uint8_t* src, int stride, OT_RECT rect, uint8_t* dst) {
  const size_t rowBytes = static_cast<size_t>(int64_t{rect.right} - rect.left);
  for (int64_t r = rect.top; r < rect.bottom; ++r) {
    std::memcpy(dst, src + r * stride + rect.left, rowBytes);
    dst += rowBytes;
  }
}

}  // namespace

int OTK_ObjTrackBgnSegment(uint8_t* luma, uint8_t* cbcr, int w, int h, int lineStep, int x, int y) {
  OT_RECT r{0, 0, 0, 0};
  uint8_t* mask = OTKIS_SetDibandSegmentYCC420(luma, cbcr, w, h, lineStep, x, y, &r.left, &r.top, &r.right,
                                               &r.bottom);
  if (mask == nullptr) return 0;
  if (TooLargeInBothDimensions(w, h, r)) {
    std::free(mask);
    return 0;
  }
  MarkTouchSquare(mask, w, h, x, y);
  r = GrowToEvenEdges(BoundAboutTouch(r, x, y));
  if (r.right >= r.left && r.top <= r.bottom && !IsWholeFrame(r, w, h)) {
    OTK_ObjTrackBgnMasking(luma, cbcr, w, h, lineStep, r.left, r.top, r.right, r.bottom, mask);
  }
  // Also after a skipped model while an earlier object is tracked: the templates are then re-cropped
  // from this frame at the previous rectangle.
  if (m_nOT == 1) CropBothTemplates(luma, w, h);

  const int result = m_nOT;
  ResetTrackingCounters();
  std::free(mask);
  return result;
}

int OTK_ObjTrackBgnMasking(uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep, int left, int top, int right,
                           int bottom, uint8_t* mask) {
  const OT_RECT rect{left, top, right, bottom};
  InitTrackerRect(rect);
  m_nOT = 1;
  BuildObjectModel(y, cbcr, w, h, lineStep, rect, mask);
  ResetTrackerCounters();
  g_nDirMCount = 0;
  g_nDirSCount = 0;
  SetModel_YCC420BUNCH_Obj(m_SceneModelHistogram, y, cbcr, w, h, lineStep);
  MakeRatioModel(gMst.histModel, m_SceneModelHistogram);
  return m_nOT;
}

void Update_object(OT_RECT rect, int stride, uint8_t* src, uint8_t* dst) {
  if (rect.top >= rect.bottom || rect.left >= rect.right) return;
  CopyRows(src, stride, rect, dst);
}

void CropTemplate(const uint8_t* luma, int w, int h, OT_RECT rect, uint8_t* dst) {
  if (rect.top >= rect.bottom || rect.left >= rect.right || w < 1 || h < 1) return;
  const int64_t width = int64_t{rect.right} - rect.left;
  const int64_t height = int64_t{rect.bottom} - rect.top;
  const OT_RECT src = MoveNoOutofImage_Obj(rect, w, h);
  if (src.left >= 0 && src.top >= 0 && src.right <= w && src.bottom <= h) {
    CopyRows(luma, w, src, dst);
    return;
  }
  // Larger than the frame: the nearest edge pixel repeats.
  for (int64_t r = 0; r < height; ++r) {
    const uint8_t* line = luma + std::clamp<int64_t>(int64_t{src.top} + r, 0, h - 1) * w;
    for (int64_t c = 0; c < width; ++c) {
      dst[r * width + c] = line[std::clamp<int64_t>(int64_t{src.left} + c, 0, w - 1)];
    }
  }
}
