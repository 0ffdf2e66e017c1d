#include "model/histogram.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "model/model_state.h"
#include "platform/arith.h"

namespace {

constexpr int kChromaBinShift = 3;
constexpr int kLumaBinShift = 4;
constexpr int kMaskObject = 255;
constexpr int kRatioScaleShift = 8;
constexpr int32_t kMaxRatioWeight = 255;
constexpr size_t kHistBytes = sizeof(int32_t) * kHistBins;

void ClearHistogram(int (*hist)[32][16]) {
  // m_size_HistModel_Obj is the byte count of every clearing; it is never allowed past one histogram.
  const size_t bytes = static_cast<size_t>(std::clamp<int64_t>(m_size_HistModel_Obj, 0, kHistBytes));
  std::memset(hist, 0, bytes);
}

void CountLuma(int32_t* binRow, uint8_t luma) {
  int32_t& bin = binRow[luma >> kLumaBinShift];
  bin = Wrap32Add(bin, 1);
}

// Visits the 2x2 blocks of rect (rows top, top+2, ... below bottom; columns left, left+2, ... below
// right) with the bin row of the block's chroma pair. The chroma column follows the block counter
// from left & ~1, not the luma column: with an odd left edge a block is binned with the pair half a
// block to its left. Selection always passes even edges, so the model itself is aligned.
template <typename VisitBlock>
void ForEachBlock(int (*hist)[32][16], const uint8_t* cbcr, int lineStep, OT_RECT rect, VisitBlock visit) {
  for (int64_t r = rect.top; r < rect.bottom; r += 2) {
    const uint8_t* pair = cbcr + static_cast<ptrdiff_t>(r >> 1) * lineStep + (rect.left & ~1);
    for (int64_t c = rect.left; c < rect.right; c += 2, pair += 2) {
      visit(hist[pair[0] >> kChromaBinShift][pair[1] >> kChromaBinShift], static_cast<ptrdiff_t>(r),
            static_cast<ptrdiff_t>(c));
    }
  }
}

OT_RECT ClipToFrame(OT_RECT rect, int w, int h) {
  rect.left = std::max(rect.left, 0);
  rect.top = std::max(rect.top, 0);
  rect.bottom = std::min(rect.bottom, h);
  rect.right = std::min(rect.right, w);
  return rect;
}

}  // namespace

void GetHistogram_YCC420BUNCH_Obj(uint8_t* y, uint8_t* cbcr, int /*w*/, int /*h*/, int lineStep, OT_RECT rect,
                                  int (*hist)[32][16]) {
  if (rect.top >= rect.bottom || rect.left >= rect.right) return;
  ForEachBlock(hist, cbcr, lineStep, rect, [&](int32_t* binRow, ptrdiff_t r, ptrdiff_t c) {
    const uint8_t* upper = y + r * lineStep + c;
    const uint8_t* lower = upper + lineStep;
    CountLuma(binRow, upper[0]);
    CountLuma(binRow, upper[1]);
    CountLuma(binRow, lower[0]);
    CountLuma(binRow, lower[1]);
  });
}

void GetMaskedHistogram_YCC420BUNCH(uint8_t* y, uint8_t* cbcr, int maskStride, int /*h*/, int lineStep,
                                    OT_RECT rect, int (*hist)[32][16], uint8_t* mask) {
  if (rect.top >= rect.bottom || Wrap32Sub(rect.right, rect.left) < 1) return;
  ForEachBlock(hist, cbcr, lineStep, rect, [&](int32_t* binRow, ptrdiff_t r, ptrdiff_t c) {
    for (ptrdiff_t dr = 0; dr < 2; ++dr) {
      const uint8_t* lumaRow = y + (r + dr) * lineStep + c;
      const uint8_t* maskRow = mask + (r + dr) * maskStride + c;
      // Only exactly 255 is object; the flood fill leaves other labels behind.
      if (maskRow[0] == kMaskObject) CountLuma(binRow, lumaRow[0]);
      if (maskRow[1] == kMaskObject) CountLuma(binRow, lumaRow[1]);
    }
  });
}

void SetModelRect_YCC420BUNCH_Obj(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep,
                                  OT_RECT rect) {
  const OT_RECT clipped = ClipToFrame(rect, w, h);
  ClearHistogram(hist);
  GetHistogram_YCC420BUNCH_Obj(y, cbcr, w, h, lineStep, clipped, hist);
}

void SetModelMaskedRect_YCC420BUNCH_Obj(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w, int h,
                                        int lineStep, OT_RECT rect, uint8_t* mask) {
  const OT_RECT clipped = ClipToFrame(rect, w, h);
  ClearHistogram(hist);
  GetMaskedHistogram_YCC420BUNCH(y, cbcr, w, h, lineStep, clipped, hist, mask);
}

void SetModel_YCC420BUNCH_Obj(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep) {
  ClearHistogram(hist);
  if (h < 1 || w < 1) return;
  GetHistogram_YCC420BUNCH_Obj(y, cbcr, w, h, lineStep, OT_RECT{0, 0, w, h}, hist);
}

void MakeRatioModel(int (*model)[32][16], const int (*scene)[32][16]) {
  for (int cb = 0; cb < kHistCbBins; ++cb) {
    for (int cr = 0; cr < kHistCrBins; ++cr) {
      for (int yb = 0; yb < kHistYBins; ++yb) {
        const int32_t s = scene[cb][cr][yb];
        int32_t& m = model[cb][cr][yb];
        if (s == 0) {
          m = 0;
          continue;
        }
        const int32_t scaled = static_cast<int32_t>(static_cast<uint32_t>(m) << kRatioScaleShift);
        // A colour found only in the object would score 256; the cap keeps it in the low byte.
        m = std::min(Wrap32Div(scaled, s), kMaxRatioWeight);
      }
    }
  }
}
