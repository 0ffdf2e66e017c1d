// Segments arbitrary working images at arbitrary touch points, as object selection does: line
// step = width, planes laid out as in the working buffer (height / 2 chroma rows of width bytes),
// the search offset derived from a working height. Checks the mask and the rectangle.
//
// Input: a mode byte; the size (1 byte per side for raw pixels, 2 for painted ones); with mode
// bit 0 a working height (2 bytes); the touch (see ReadCoordinate); then the raw pixels, or a
// background, a noise amplitude and up to five rectangles (see Paint).
#include <algorithm>
#include <climits>
#include <cstdlib>

#include "engine/tuning.h"
#include "image/segmentation.h"
#include "support/fuzz_support.h"

namespace plovix_fuzz {

namespace {

constexpr int kMaxRawSide = 96;
// Painted images reach widths where a row's run of fill candidates passes the scratch flush.
constexpr int kMaxPaintedWidth = 400;
constexpr int kMaxPaintedHeight = 300;
constexpr int kMaxRects = 5;
// The empty mask's rectangle: the untouched search start minus the margin.
constexpr int kEmptyLeftTop = 99995;
constexpr int kEmptyRightBottomCap = 4;

constexpr int32_t kExtremes[] = {INT_MIN, INT_MAX, INT_MIN + 7, INT_MAX - 7, -1, -5, -100000, 100000};

// Quantised to a few levels, fills grow over several pixels.
void FillPlane(ByteReader* in, uint8_t* plane, size_t n, bool quantise) {
  for (size_t i = 0; i < n; ++i) {
    const uint8_t v = in->U8();
    plane[i] = quantise ? static_cast<uint8_t>(v & 0xE0) : v;
  }
}

struct Colour {
  uint8_t y, cb, cr;
};

Colour ReadColour(ByteReader* in) { return Colour{in->U8(), in->U8(), in->U8()}; }

void PaintRect(uint8_t* luma, uint8_t* chroma, int w, int h, int l, int t, int r, int b, Colour c) {
  for (int y = t; y < b; ++y) {
    std::fill(luma + static_cast<size_t>(y) * w + l, luma + static_cast<size_t>(y) * w + r, c.y);
    if (y / 2 >= h / 2) continue;
    for (int x = l & ~1; x + 1 < r && x + 1 < w; x += 2) {
      chroma[static_cast<size_t>(y / 2) * w + x] = c.cb;
      chroma[static_cast<size_t>(y / 2) * w + x + 1] = c.cr;
    }
  }
}

// A flat background with luma noise and a few flat rectangles.
void Paint(ByteReader* in, uint8_t* luma, uint8_t* chroma, int w, int h) {
  PaintRect(luma, chroma, w, h, 0, 0, w, h, ReadColour(in));
  const int noise = in->U8() % 16;
  const int rects = in->U8() % (kMaxRects + 1);
  for (int i = 0; i < rects; ++i) {
    const int l = in->U16() % w, t = in->U16() % h;
    const int r = std::min(w, l + 1 + in->U16() % w), b = std::min(h, t + 1 + in->U16() % h);
    PaintRect(luma, chroma, w, h, l, t, r, b, ReadColour(in));
  }
  if (noise == 0) return;
  uint32_t state = 2463534242u;
  for (size_t i = 0; i < static_cast<size_t>(w) * h; ++i) {
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    luma[i] = static_cast<uint8_t>(std::clamp(luma[i] + static_cast<int>(state % (2 * noise + 1)) - noise, 0, 255));
  }
}

// Mostly from 6 pixels before the image to 6 past it, sometimes extreme.
int32_t ReadCoordinate(ByteReader* in, int side) {
  constexpr int kNearPicks = 192, kMargin = 6;
  const uint8_t pick = in->U8();
  if (pick < kNearPicks) return pick * (side + 2 * kMargin) / kNearPicks - kMargin;
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
  const uint8_t mode = in.U8();
  const bool painted = (mode & 4) != 0;
  const int w = 1 + (painted ? in.U16() % kMaxPaintedWidth : in.U8() % kMaxRawSide);
  const int h = 1 + (painted ? in.U16() % kMaxPaintedHeight : in.U8() % kMaxRawSide);
  // The engine derives the offset from its working height; bit 0 pretends a larger frame.
  SetTuningForWorkHeight((mode & 1) ? 1 + in.U16() % 4096 : h);
  const int tx = ReadCoordinate(&in, w);
  const int ty = ReadCoordinate(&in, h);

  HeapBytes luma(static_cast<size_t>(w) * h);
  HeapBytes chroma(static_cast<size_t>(w) * (h / 2));
  if (painted) {
    Paint(&in, luma.get(), chroma.get(), w, h);
  } else {
    const bool quantise = (mode & 2) != 0;
    FillPlane(&in, luma.get(), luma.size(), quantise);
    FillPlane(&in, chroma.get(), chroma.size(), quantise);
  }

  int l = 0, t = 0, r = 0, b = 0;
  uint8_t* mask = OTKIS_SetDibandSegmentYCC420(luma.get(), chroma.get(), w, h, w, tx, ty, &l, &t, &r, &b);
  CheckResult(mask, w, h, l, t, r, b);
  std::free(mask);
  return 0;
}
