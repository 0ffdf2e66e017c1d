#include "image/flood_fill.h"

#include <algorithm>
#include <cstdlib>

#include "image/image_state.h"
#include "platform/arith.h"
#include "platform/memory.h"

namespace {

constexpr uint8_t kMarked = 255;

// Mask byte at (x, y) through the mask's own line step; outside its allocation it reads as 0.
uint8_t MaskByte(const tag_CDibY* mask, int x, int y) {
  if (mask == nullptr || mask->pixels == nullptr) return 0;
  const int64_t bytes = Wrap32Mul(mask->height, mask->lineStep);
  return ByteOrZero(mask->pixels, bytes, static_cast<int64_t>(mask->lineStep) * y + x);
}

int ColourDistance(const tag_CFloodFill& ff, int y, int cb, int cr) {
  return std::abs(ff.pivotY - y) + std::abs(ff.pivotCb - cb) + std::abs(ff.pivotCr - cr);
}

bool HasImage420(const tag_CFloodFill* ff) {
  return ff->image420 != nullptr && ff->image420->y != nullptr && ff->image420->cbcr != nullptr;
}

bool HasImage422(const tag_CFloodFill* ff) { return ff->image422 != nullptr && ff->image422->pixels != nullptr; }

bool HasMask(const tag_CFloodFill* ff) { return ff->mask != nullptr && ff->mask->pixels != nullptr; }

bool Inside(int x, int y, int width, int height) { return x >= 0 && y >= 0 && x < width && y < height; }

// Colour tests along one row of the 4:2:0 copy. The two columns of a 2x2 block share one chroma
// pair, so its difference from the pivot is computed once per pair.
class Row420Test {
 public:
  Row420Test(const tag_CFloodFill& ff, int row)
      : ff_(ff),
        luma_(ff.image420->y + static_cast<int64_t>(ff.image420->lineStep) * row),
        chroma_(ff.image420->cbcr + static_cast<int64_t>(ff.image420->lineStep) * (row / 2)),
        row_(row) {}

  uint8_t MaskAt(int x) const { return MaskByte(ff_.mask, x, row_); }

  bool IsNear(int x) {
    const int pair = x & ~1;
    if (pair != cachedPair_) {
      cachedPair_ = pair;
      chromaDistance_ = std::abs(ff_.pivotCb - chroma_[pair]) + std::abs(ff_.pivotCr - chroma_[pair + 1]);
    }
    return std::abs(ff_.pivotY - luma_[x]) + chromaDistance_ <= ff_.threshold;
  }

  bool Accepts(int x) { return MaskAt(x) != kMarked && IsNear(x); }

 private:
  const tag_CFloodFill& ff_;
  const uint8_t* luma_;
  const uint8_t* chroma_;
  int row_;
  int cachedPair_ = -1;
  int chromaDistance_ = 0;
};

void InvertMask(tag_CFloodFill* ff) {
  if (ff->mask != nullptr) CDibY_Inverse(ff->mask);
}

void FlushScratch(tag_CPointArray* queue, int row) {
  CPointArray_Add(queue, g_FloodScratch, row, g_FloodScratchCount);
  g_FloodScratchCount = 0;
}

void PaintRun420(tag_CDibY* mask, int left, int right, int y) {
  if (y < 0 || y >= mask->height || left > right) return;
  uint8_t* row = mask->pixels + static_cast<int64_t>(mask->lineStep) * y;
  const int last = std::min(right, mask->width - 1);
  for (int x = std::max(left, 0); x <= last; ++x) row[x] = kMarked;
}

// One queued point of the 4:2:0 fill: widen it to its run, mark the run, queue the rows around it.
void FillRun420(tag_CFloodFill* ff, tagOT_POINT p, tag_CPointArray* queue) {
  if (!CFFColor_CheckDistanceYCC420(ff, p)) return;
  Row420Test test(*ff, p.y);
  int left = p.x;
  while (left > 0 && test.Accepts(left - 1)) --left;
  int right = p.x;
  while (right + 1 < ff->image420->width && test.Accepts(right + 1)) ++right;
  PaintRun420(ff->mask, left, right, p.y);
  CFFColor_CheckDistanceYCC420_lineadd(ff, left, right, p.y - 1, queue);
  CFFColor_CheckDistanceYCC420_lineadd(ff, left, right, p.y + 1, queue);
}

void QueueIfPasses422(tag_CFloodFill* ff, int x, int y, tag_CPointArray* queue) {
  if (CFFColor_CheckDistanceYCC(ff, tagOT_POINT{x, y})) CPointArray_Add(queue, x, y);
}

// One queued point of the 4:2:2 fill. Its run ends on the first failing column on each side, and
// those two columns are marked too: unlike the 4:2:0 fill, on purpose.
void FillRun422(tag_CFloodFill* ff, tagOT_POINT p, tag_CPointArray* queue) {
  if (!CFFColor_CheckDistanceYCC(ff, p)) return;
  int a = p.x - 1;
  while (CFFColor_CheckDistanceYCC(ff, tagOT_POINT{a, p.y})) --a;
  int b = p.x + 1;
  while (CFFColor_CheckDistanceYCC(ff, tagOT_POINT{b, p.y})) ++b;
  for (int i = a; i <= b; ++i) PaintY(ff, i, p.y);
  for (int i = a; i <= b; ++i) {
    QueueIfPasses422(ff, i, p.y - 1, queue);
    QueueIfPasses422(ff, i, p.y + 1, queue);
  }
}

using PointTest = bool (*)(tag_CFloodFill*, tagOT_POINT);
using RunStep = void (*)(tag_CFloodFill*, tagOT_POINT, tag_CPointArray*);

// The queue lives in this frame; its pool is the fill's only allocation.
void RunFloodFill(tag_CFloodFill* ff, tagOT_POINT seed, bool invert, PointTest passes, RunStep fillRun) {
  if (invert) InvertMask(ff);
  tag_CPointArray queue;
  CPointArray_Initialize(&queue);
  if (passes(ff, seed)) {
    CPointArray_Add(&queue, seed);
    while (queue.count > 0) fillRun(ff, CPointArray_TakeFirst(&queue), &queue);
  }
  if (invert) InvertMask(ff);
  CPointArray_RemoveAll(&queue);
}

void ReplaceMask(tag_CFloodFill* ff, tag_CDibY* dib, bool haveImage, int width, int height, int lineStep) {
  if (ff->mask != nullptr) {
    CDibY_delCDibY(ff->mask);
    ff->mask = nullptr;
  }
  if (dib != nullptr) {
    ff->mask = CDibY_CopyCDibY(dib);
  } else if (haveImage) {
    ff->mask = CDibY_newCDibY(width, height, lineStep);
  }
}

}  // namespace

void SetOriginalImageYCC420(tag_CFloodFill* ff, uint8_t* y, uint8_t* cbcr, int width, int height, int lineStep) {
  CDibYCC420_delCDibYCC420(ff->image420);
  ff->image420 = CDibYCC420_newCDibYCC420withImage(y, cbcr, width, height, lineStep);
}

void SetOriginalImage(tag_CFloodFill* ff, uint8_t* image, int width, int height, int lineStep) {
  CDibYCC_delCDibYCC422(ff->image422);
  ff->image422 = CDibYCC_newCDibYCC422withImage(image, width, height, lineStep);
}

void SetMaskDibYCC420(tag_CFloodFill* ff, tag_CDibY* dib) {
  const tag_CDibYCC420* image = ff->image420;
  ReplaceMask(ff, dib, image != nullptr, image ? image->width : 0, image ? image->height : 0,
              image ? image->lineStep : 0);
}

// The 4:2:2 line step counts two bytes a pixel; the mask has one.
void SetMaskDibYCC(tag_CFloodFill* ff, tag_CDibY* dib) {
  const tag_CDibYCC422* image = ff->image422;
  ReplaceMask(ff, dib, image != nullptr, image ? image->width : 0, image ? image->height : 0,
              image ? image->lineStep >> 1 : 0);
}

void PaintY(tag_CFloodFill* ff, int x, int y) {
  if (!HasMask(ff) || !Inside(x, y, ff->mask->width, ff->mask->height)) return;
  *CDibY_GetYPointer(ff->mask, x, y) = kMarked;
}

void CFFColor_SetThreshold(tag_CFloodFill* ff, int t) { ff->threshold = t; }

void CFFColor_SetPivotColorYCC420(tag_CFloodFill* ff, tagOT_POINT point) {
  if (!HasImage420(ff) || !Inside(point.x, point.y, ff->image420->width, ff->image420->height)) return;
  const uint8_t* cb = CDibYCC420_GetCbPointer(ff->image420, point.x, point.y);
  ff->pivotY = *CDibYCC420_GetYPointer(ff->image420, point.x, point.y);
  ff->pivotCb = cb[0];
  ff->pivotCr = cb[1];
}

void CFFColor_SetPivotColorYCC(tag_CFloodFill* ff, tagOT_POINT point) {
  if (!HasImage422(ff) || !Inside(point.x, point.y, ff->image422->width, ff->image422->height)) return;
  const uint8_t* cb = CDibYCC_GetCbPointer(ff->image422, point.x, point.y);
  ff->pivotY = *CDibYCC_GetYPointer(ff->image422, point.x, point.y);
  ff->pivotCb = cb[0];
  ff->pivotCr = cb[2];
}

void CFFColor_FloodFillYCC420(tag_CFloodFill* ff, tagOT_POINT seed, int threshold, bool invert) {
  CFFColor_SetThreshold(ff, threshold);
  CFFColor_SetPivotColorYCC420(ff, seed);
  CFFColor_RunFloodFillYCC420(ff, seed, invert);
}

void CFFColor_FloodFill(tag_CFloodFill* ff, tagOT_POINT seed, int threshold, bool invert) {
  CFFColor_SetThreshold(ff, threshold);
  CFFColor_SetPivotColorYCC(ff, seed);
  CFFColor_RunFloodFillYCC(ff, seed, invert);
}

bool CFFColor_CheckDistanceYCC420(tag_CFloodFill* ff, tagOT_POINT point) {
  if (!HasImage420(ff) || !HasMask(ff)) return false;
  if (!Inside(point.x, point.y, ff->image420->width, ff->image420->height)) return false;
  return Row420Test(*ff, point.y).Accepts(point.x);
}

bool CFFColor_CheckDistanceYCC(tag_CFloodFill* ff, tagOT_POINT point) {
  if (!HasImage422(ff) || !HasMask(ff)) return false;
  if (!Inside(point.x, point.y, ff->image422->width, ff->image422->height)) return false;
  if (MaskByte(ff->mask, point.x, point.y) == kMarked) return false;
  const uint8_t* cb = CDibYCC_GetCbPointer(ff->image422, point.x, point.y);
  const int y = *CDibYCC_GetYPointer(ff->image422, point.x, point.y);
  return ColourDistance(*ff, y, cb[0], cb[2]) <= ff->threshold;
}

void CFFColor_RunFloodFillYCC420(tag_CFloodFill* ff, tagOT_POINT seed, bool invert) {
  RunFloodFill(ff, seed, invert, CFFColor_CheckDistanceYCC420, FillRun420);
}

void CFFColor_RunFloodFillYCC(tag_CFloodFill* ff, tagOT_POINT seed, bool invert) {
  RunFloodFill(ff, seed, invert, CFFColor_CheckDistanceYCC, FillRun422);
}

// The mask must be exactly 0 here, while the run scans only refuse 255: the two tests differ on
// purpose. Qualifying columns are batched in the scratch array and flushed to the queue.
void CFFColor_CheckDistanceYCC420_lineadd(tag_CFloodFill* ff, int xl, int xr, int row, tag_CPointArray* queue) {
  if (!HasImage420(ff) || row < 0 || row >= ff->image420->height || xl > xr) return;
  const int xs = std::max(xl, 0);
  const int xe = std::min(xr, ff->image420->width - 1);
  Row420Test test(*ff, row);
  for (int x = xs; x <= xe; ++x) {
    if (test.MaskAt(x) == 0 && test.IsNear(x)) g_FloodScratch[g_FloodScratchCount++] = x;
    if ((x & 1) == 0 && g_FloodScratchCount >= kFloodScratchFlushAt) FlushScratch(queue, row);
  }
  FlushScratch(queue, row);
}
