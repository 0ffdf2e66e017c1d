// One size step (GetSizeVH) or a whole size estimation (GetObjectSize_Obj) on arbitrary weight
// images and rectangles: inside the image, larger than it (as after a zoom step), inverted or far
// outside. The size bounds come from a working height, as the engine derives them.
//
// Input: width, height (1 byte each), a working height (2 bytes), a mode byte, the rectangle,
// the threshold, then the weights.
#include <climits>

#include "engine/tuning.h"
#include "model/model_state.h"
#include "model/object_size.h"
#include "platform/arith.h"
#include "support/fuzz_support.h"
#include "tracking/tracker_state.h"

namespace plovix_fuzz {

namespace {

constexpr int kMaxSide = 128;
constexpr int kMaxWorkHeight = 1080;

bool Same(const OT_RECT& a, const OT_RECT& b) {
  return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

// The step returns its input untouched or a clipped candidate within the size bounds. Extents are
// 32-bit differences: from edges near INT_MIN/INT_MAX a clipped candidate can be inverted and still
// have a wrapped extent in bounds.
void CheckStep(const OT_RECT& in, const OT_RECT& out, int w, int h) {
  if (Same(in, out)) return;
  Check(out.left >= 0 && out.top >= 0 && out.right <= w && out.bottom <= h, "candidate inside", out.left, out.right);
  const int32_t width = Wrap32Sub(out.right, out.left), height = Wrap32Sub(out.bottom, out.top);
  Check(width >= g_MIN_OBJ_SIZE && width <= g_MAX_OBJ_SIZE, "candidate width in bounds", width);
  Check(height >= g_MIN_OBJ_SIZE && height <= g_MAX_OBJ_SIZE, "candidate height in bounds", height);
}

int32_t ReadThreshold(ByteReader* in) {
  const uint8_t pick = in->U8();
  if (pick < 224) return pick;
  return pick < 240 ? -1 - (pick & 7) : in->I32();
}

// The history as earlier estimations leave it: an index of -1..2 and up to three entries.
void ReadHistory(ByteReader* in, int w, int h) {
  g_nRectIndex = in->U8() % 4 - 1;
  g_nRectStack = g_nRectIndex < 0 ? -1 : 1 + in->U8() % 3;
  g_nMovementStack = in->U8() % 4;
  for (OT_RECT& r : g_RectShowbox) r = ReadRect(in, w, h);
}

}  // namespace

}  // namespace plovix_fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace plovix_fuzz;
  static const bool silenced = (SilenceEngineLog(), true);
  (void)silenced;
  ResetEngineGlobals();
  ByteReader in(data, size);
  const int w = 1 + in.U8() % kMaxSide;
  const int h = 1 + in.U8() % kMaxSide;
  SetTuningForWorkHeight(1 + in.U16() % kMaxWorkHeight);
  const uint8_t mode = in.U8();
  // The estimation's track rectangle is a mean-shift result, object-sized and near the image: its
  // density sum walks every row, so edges at INT_MIN/INT_MAX would take 2^32 rows.
  const bool estimate = (mode & 1) != 0;
  const OT_RECT rect = ReadRect(&in, w, h, !estimate);
  const int32_t threshold = ReadThreshold(&in);

  if (estimate) {
    gMst.rcTrack = rect;
    gMst.nInitDensity = (mode & 2) ? threshold : 0;
    gMst.nWeightThr = threshold;
    ReadHistory(&in, w, h);
    HeapBytes weights = ReadWeights(&in, w, h);
    GetObjectSize_Obj(&gMst, weights.get(), w, h);
    Check(g_nRectIndex >= 0 && g_nRectIndex <= 2, "history index", g_nRectIndex);
    Check(g_nMovementStack >= 0 && g_nMovementStack <= 3, "movement stack", g_nMovementStack);
    return 0;
  }
  HeapBytes weights = ReadWeights(&in, w, h);
  const bool vertical = (mode & 2) != 0, horizontal = (mode & 4) != 0;
  const OT_RECT out = GetSizeVH(weights.get(), w, h, rect, threshold, vertical, horizontal);
  CheckStep(rect, out, w, h);
  return 0;
}
