// Both mean-shift searches on arbitrary weight images: the tracking search from an arbitrary
// track rectangle (inside, larger than the image as after a zoom step, inverted, far outside) and
// the wide search from start corners like those of the lost search, and from anywhere.
//
// Input: width, height (1 byte each), a mode byte, the rectangle or corner, eps, the weights.
#include <climits>

#include "support/fuzz_support.h"
#include "tracking/mean_shift.h"
#include "tracking/tracker_state.h"

namespace plovix_fuzz {

namespace {

constexpr int kMaxSide = 128;
constexpr int32_t kEpsilons[] = {1, 1, 1, 0, 2, -1, INT_MAX};

int32_t Width(const OT_RECT& r) { return static_cast<int32_t>(static_cast<uint32_t>(r.right) - r.left); }
int32_t Height(const OT_RECT& r) { return static_cast<int32_t>(static_cast<uint32_t>(r.bottom) - r.top); }

// The lost search's corners lie between 0 and the image size; the far ones test the contract.
int32_t ReadCorner(ByteReader* in, int side) {
  const uint8_t pick = in->U8();
  if (pick < 224) return static_cast<int32_t>(in->U16() % (2 * side + 41)) - 20;
  return in->I32();
}

void RunTrackingSearch(ByteReader* in, int w, int h, uint8_t mode) {
  CMeanShiftTracker t{};
  t.rcTrack = ReadRect(in, w, h);
  t.nObjW = t.nWinW = Width(t.rcTrack);
  t.nObjH = t.nWinH = Height(t.rcTrack);
  // After a sensor or zoom correction the object size no longer matches the rectangle.
  if (mode & 2) {
    t.nObjW = t.nWinW = in->U8() - 16;
    t.nObjH = t.nWinH = in->U8() - 16;
  }
  if (mode & 4) {
    t.nWinW = in->I32();
    t.nWinH = in->I32();
  }
  const int32_t eps = in->Pick(kEpsilons);
  HeapBytes weights = ReadWeights(in, w, h);
  int sum = -1;
  const OT_RECT r = MeanShift_Obj(&t, weights.get(), w, h, &sum, eps);
  Check(sum >= 0, "weight sum", sum);
  // Shifted into the image: only a rectangle larger than it may stick out, and then on the left
  // or top only.
  if (t.nObjW >= 0 && (t.nObjW >> 1) * 2 <= w) Check(r.left >= 0 && r.right <= w, "result inside", r.left, r.right);
  if (t.nObjH >= 0 && (t.nObjH >> 1) * 2 <= h) Check(r.top >= 0 && r.bottom <= h, "result inside", r.top, r.bottom);
}

void RunWideSearch(ByteReader* in, int w, int h) {
  const int32_t x0 = ReadCorner(in, w);
  const int32_t y0 = ReadCorner(in, h);
  obj_W = in->U8() - 16;
  obj_H = in->U8() - 16;
  const int32_t eps = in->Pick(kEpsilons);
  HeapBytes weights = ReadWeights(in, w, h);
  int sum = -1;
  const OT_RECT r = D_MeanShift_Obj(nullptr, weights.get(), w, h, x0, y0, &sum, eps);
  Check(sum >= 0, "weight sum", sum);
  Check(r.left >= 0 && r.top >= 0 && r.right <= w && r.bottom <= h, "clipped result", r.left, r.top);
}

}  // namespace

}  // namespace plovix_fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace plovix_fuzz;
  ResetEngineGlobals();
  ByteReader in(data, size);
  const int w = 1 + in.U8() % kMaxSide;
  const int h = 1 + in.U8() % kMaxSide;
  const uint8_t mode = in.U8();
  if (mode & 1) {
    RunWideSearch(&in, w, h);
  } else {
    RunTrackingSearch(&in, w, h, mode);
  }
  return 0;
}
