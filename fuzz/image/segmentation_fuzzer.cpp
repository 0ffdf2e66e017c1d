// Segments arbitrary small working images at arbitrary touch points, as object selection does:
// line step = width, planes laid out as in the working buffer (height / 2 chroma rows of width
// bytes), the search offset derived from a working height. Checks the mask and the rectangle.
//
// Input: width, height (1 byte each), a mode byte, the touch (see ReadTouch), then pixels.
#include <algorithm>
#include <climits>
#include <cstdlib>

#include "engine/tuning.h"
#include "image/segmentation.h"
#include "support/fuzz_support.h"

namespace plovix_fuzz {

namespace {

constexpr int kMaxSide = 96;
// The empty mask's rectangle: the untouched search start minus the margin.
constexpr int kEmptyLeftTop = 99995;
constexpr int kEmptyRightBottomCap = 4;

constexpr int32_t kExtremes[] = {INT_MIN, INT_MAX, INT_MIN + 7, INT_MAX - 7, -1, -5, -100000, 100000};

// Few distinct levels, so that fills grow over several pixels.
void FillPlane(ByteReader* in, uint8_t* plane, size_t n, bool quantise) {
  for (size_t i = 0; i < n; ++i) {
    const uint8_t v = in->U8();
    plane[i] = quantise ? static_cast<uint8_t>(v & 0xE0) : v;
  }
}

int32_t ReadCoordinate(ByteReader* in, int side) {
  const uint8_t pick = in->U8();
  if (pick < 192) return pick % (side + 12) - 6;
  if (pick < 224) return in->Pick(kExtremes);
  return in->I32();
}

void CheckResult(const uint8_t* mask, int w, int h, int l, int t, int r, int b) {
  if (mask == nullptr) return;
  for (size_t i = 0; i < static_cast<size_t>(w) * h; ++i) Check(mask[i] == 0 || mask[i] == 255, "mask byte", mask[i]);
  if (l > r) {
    Check(l == kEmptyLeftTop && t == kEmptyLeftTop, "empty rectangle left/top", l, t);
    Check(r == std::min(kEmptyRightBottomCap, w) && b == std::min(kEmptyRightBottomCap, h),
          "empty rectangle right/bottom", r, b);
    return;
  }
  Check(l >= 0 && t >= 0 && r <= w && b <= h, "rectangle inside the image", l, r);
  Check(t <= b, "rectangle ordered", t, b);
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
  const uint8_t mode = in.U8();
  // The engine derives the offset from its working height; bit 0 pretends a larger frame.
  SetTuningForWorkHeight((mode & 1) ? 1 + in.U16() % 4096 : h);
  const int tx = ReadCoordinate(&in, w);
  const int ty = ReadCoordinate(&in, h);

  HeapBytes luma(static_cast<size_t>(w) * h);
  HeapBytes chroma(static_cast<size_t>(w) * (h / 2));
  const bool quantise = (mode & 2) != 0;
  FillPlane(&in, luma.get(), luma.size(), quantise);
  FillPlane(&in, chroma.get(), chroma.size(), quantise);

  int l = 0, t = 0, r = 0, b = 0;
  uint8_t* mask = OTKIS_SetDibandSegmentYCC420(luma.get(), chroma.get(), w, h, w, tx, ty, &l, &t, &r, &b);
  CheckResult(mask, w, h, l, t, r, b);
  std::free(mask);
  return 0;
}
