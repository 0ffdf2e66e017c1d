#include "support/fuzz_support.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "engine/plovix_engine.h"
#include "engine/tuning.h"
#include "engine/working_image.h"
#include "image/image_state.h"
#include "model/model_state.h"
#include "plovixengine.h"
#include "tracking/tracker_state.h"

namespace plovix_fuzz {

namespace {

void DropMessage(int /*priority*/, const char* tag, const char* text, void* /*user*/) {
  // Touch the formatted text so a bad format argument still shows under the sanitizers.
  volatile size_t n = std::strlen(tag) + std::strlen(text);
  (void)n;
}

void ResetImageState() {
  CDibYCC_delCDibYCC422(m_FF.image422);
  CDibYCC420_delCDibYCC420(m_FF.image420);
  CDibY_delCDibY(m_FF.mask);
  m_FF = tag_CFloodFill{nullptr, nullptr, nullptr, 0, 0, 0, 0};
  m_nLineStep = 0;
  g_FloodScratchCount = 0;
}

void ResetModelState() {
  std::memset(m_SceneModelHistogram, 0, sizeof m_SceneModelHistogram);
  std::memset(g_RectShowbox, 0, sizeof g_RectShowbox);
  g_nRectIndex = -1;
  g_nRectStack = -1;
  g_nMovementStack = 0;
  g_MAX_OBJ_SIZE = 100;
  g_MIN_OBJ_SIZE = 20;
  g_MIN_OBJ_SIZE_HALF = 10;
  g_FF_SEARCH_OFFSET = 5;
}

void ResetTrackingState() {
  std::free(pObj_window);
  std::free(pObj_Seg_window);
  pObj_window = pObj_Seg_window = nullptr;
  obj_W = obj_H = obj_sW = obj_sH = 0;
  gMst = CMeanShiftTracker{};
  m_nOT = Valid_cnt = NCC_cnt = LostCount = 0;
  Valid_flg = false;
  score_normcrosscorr = 100;
  std::memset(otDirM, 0, sizeof otDirM);
  std::memset(otDirS, 0, sizeof otDirS);
  g_nDirMCount = g_nDirSCount = g_nLastMoveEvent = g_nLastSizeEvent = 0;
}

constexpr int32_t kExtremes[] = {INT_MIN, INT_MAX, INT_MIN + 1, INT_MAX - 1, -1, 0, 1, -100000, 100000};
constexpr int kMaxBlobs = 4;

// A coordinate on one axis of a side-long image, up to a side beyond either edge.
int32_t Near(ByteReader* in, int side) { return static_cast<int32_t>(in->U16() % (3 * side + 1)) - side; }

void PaintBlob(ByteReader* in, uint8_t* px, int w, int h) {
  const int l = in->U8() % w;
  const int t = in->U8() % h;
  const int r = std::min(w, l + 1 + in->U8() % w);
  const int b = std::min(h, t + 1 + in->U8() % h);
  const uint8_t v = in->U8();
  for (int y = t; y < b; ++y) std::fill(px + static_cast<size_t>(y) * w + l, px + static_cast<size_t>(y) * w + r, v);
}

}  // namespace

OT_RECT ReadRect(ByteReader* in, int w, int h, bool anyIntegers) {
  const uint8_t pick = in->U8() % 5;
  switch (anyIntegers ? pick : pick % 3) {
    case 0: {
      const int32_t l = in->U8() % (w + 1), t = in->U8() % (h + 1);
      return OT_RECT{l, t, l + in->U8() % (w + 1 - l), t + in->U8() % (h + 1 - t)};
    }
    case 1: {
      const int32_t gx = in->U8(), gy = in->U8();
      return OT_RECT{-gx, -gy, w + gx + in->U8() % 2, h + gy + in->U8() % 2};
    }
    case 2:
      return OT_RECT{Near(in, w), Near(in, h), Near(in, w), Near(in, h)};
    case 3:
      return OT_RECT{in->Pick(kExtremes), in->Pick(kExtremes), in->Pick(kExtremes), in->Pick(kExtremes)};
    default:
      return OT_RECT{in->I32(), in->I32(), in->I32(), in->I32()};
  }
}

HeapBytes ReadWeights(ByteReader* in, int w, int h) {
  HeapBytes px(static_cast<size_t>(w) * h);
  const uint8_t mode = in->U8();
  if (mode & 1) {
    for (size_t i = 0; i < px.size(); ++i) px.get()[i] = in->U8();
    return px;
  }
  std::fill(px.get(), px.get() + px.size(), 0);
  const int blobs = 1 + (mode >> 1) % kMaxBlobs;
  for (int i = 0; i < blobs; ++i) PaintBlob(in, px.get(), w, h);
  return px;
}

uint16_t ByteReader::U16() {
  const uint16_t lo = U8();
  return static_cast<uint16_t>(lo | (U8() << 8));
}

int32_t ByteReader::I32() {
  const uint32_t lo = U16();
  return static_cast<int32_t>(lo | (static_cast<uint32_t>(U16()) << 16));
}

void ResetEngineGlobals() {
  ResetImageState();
  ResetModelState();
  ResetTrackingState();
}

void SilenceEngineLog() { plovix_set_log_callback(&DropMessage, nullptr); }

void SetTuningForWorkHeight(int workHeight) {
  // A one-pixel-wide frame is never decimated, so the engine's own derivation sees this height.
  PlovixEngine scratch;
  CreateWorkingImage(&scratch, 1, workHeight, 2);
}

void Violation(const char* what, long long a, long long b) {
  std::fprintf(stderr, "invariant violated: %s (%lld, %lld)\n", what, a, b);
  std::abort();
}

}  // namespace plovix_fuzz
