#include "model/back_projection.h"

#include <cstddef>

namespace {

constexpr int kChromaBinShift = 3;
constexpr int kLumaBinShift = 4;

// The bin holds 0..255 after the ratio step; its low byte is taken as it is.
uint8_t Weight(const int32_t* binRow, uint8_t luma) { return static_cast<uint8_t>(binRow[luma >> kLumaBinShift]); }

const int32_t* BinRow(const int (*hist)[32][16], const uint8_t* pair) {
  return hist[pair[0] >> kChromaBinShift][pair[1] >> kChromaBinShift];
}

// Rounds every edge down to even: an odd right or bottom edge loses its last column or row.
OT_RECT EvenRect(OT_RECT rect) {
  return OT_RECT{rect.left & ~1, rect.top & ~1, rect.right & ~1, rect.bottom & ~1};
}

}  // namespace

void BackProjectBlocks(const int (*hist)[32][16], const uint8_t* y, const uint8_t* cbcr, int w, int lineStep,
                       uint8_t* weights, int left, int top, int right, int bottom) {
  for (ptrdiff_t r = top; r < bottom; r += 2) {
    const uint8_t* pair = cbcr + (r >> 1) * lineStep + left;
    const uint8_t* upper = y + r * lineStep;
    const uint8_t* lower = upper + lineStep;
    uint8_t* outUpper = weights + r * w;
    uint8_t* outLower = outUpper + w;
    for (ptrdiff_t c = left; c < right; c += 2, pair += 2) {
      const int32_t* binRow = BinRow(hist, pair);
      outUpper[c] = Weight(binRow, upper[c]);
      outUpper[c + 1] = Weight(binRow, upper[c + 1]);
      outLower[c] = Weight(binRow, lower[c]);
      outLower[c + 1] = Weight(binRow, lower[c + 1]);
    }
  }
}

void GetBackProjectionImage_YCC420BUNCH_Obj_C(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w, int /*h*/,
                                              int lineStep, uint8_t* weights, OT_RECT rect) {
  const OT_RECT r = EvenRect(rect);
  if (r.top >= r.bottom || r.left >= r.right) return;
  BackProjectBlocks(hist, y, cbcr, w, lineStep, weights, r.left, r.top, r.right, r.bottom);
}

void GetBackProjectionImage_YCC420BUNCH_Obj(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w, int /*h*/,
                                            int lineStep, uint8_t* weights, OT_RECT rect) {
  const OT_RECT er = EvenRect(rect);
  if (er.top >= er.bottom || er.left >= er.right) return;
  for (ptrdiff_t r = er.top; r < er.bottom; r += 2) {
    const uint8_t* pair = cbcr + (r >> 1) * lineStep + er.left;
    const uint8_t* upper = y + r * lineStep;
    uint8_t* outUpper = weights + r * w;
    uint8_t* outLower = outUpper + w;
    for (ptrdiff_t c = er.left; c < er.right; c += 2, pair += 2) {
      const int32_t* binRow = BinRow(hist, pair);
      // The lower row of the block is never looked up: it repeats the upper row's weights.
      const uint8_t a = Weight(binRow, upper[c]);
      const uint8_t b = Weight(binRow, upper[c + 1]);
      outUpper[c] = outLower[c] = a;
      outUpper[c + 1] = outLower[c + 1] = b;
    }
  }
}
