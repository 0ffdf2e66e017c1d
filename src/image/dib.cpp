#include "image/dib.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "platform/arith.h"
#include "platform/memory.h"

namespace {

// Chroma of the luma-only 4:2:2 conversion; 136 rather than neutral 128, and callers depend on it.
constexpr uint8_t kConvertedChroma = 136;

// Plane sizes are 32-bit products as the records hold them; a negative product can never be
// allocated, so it counts as an allocation failure. Every plane gets a zero pad (see memory.h).
uint8_t* AllocPlane(int32_t bytes, int32_t rowBytes) {
  if (bytes < 0) return nullptr;
  return AllocZeroedImage(static_cast<size_t>(bytes), static_cast<size_t>(std::max(rowBytes, 0)));
}

uint8_t* AllocPlaneCopy(const uint8_t* src, int32_t bytes, int32_t rowBytes) {
  uint8_t* plane = AllocPlane(bytes, rowBytes);
  if (plane != nullptr && src != nullptr && bytes > 0) std::memcpy(plane, src, static_cast<size_t>(bytes));
  return plane;
}

template <typename Record>
Record* AllocRecord() {
  return static_cast<Record*>(std::malloc(sizeof(Record)));
}

void SetNumbers(tag_CDibY* dib, int width, int height, int lineStep) {
  dib->width = width;
  dib->height = height;
  dib->lineStep = lineStep;
}

void SetNumbers(tag_CDibYCC420* dib, int width, int height, int lineStep) {
  dib->width = width;
  dib->height = height;
  dib->lineStep = lineStep;
}

int32_t PlaneBytes(const tag_CDibY* dib) { return Wrap32Mul(dib->height, dib->lineStep); }
int32_t LumaBytes(const tag_CDibYCC420* dib) { return Wrap32Mul(dib->lineStep, dib->height); }
int32_t ChromaBytes(const tag_CDibYCC420* dib) { return Wrap32Mul(dib->lineStep, dib->height / 2); }

void ZeroPlane(uint8_t* plane, int32_t bytes) {
  if (plane != nullptr && bytes > 0) std::memset(plane, 0, static_cast<size_t>(bytes));
}

// Complements `count` bytes of each row, `stride` bytes apart within the row.
void InvertRows(uint8_t* plane, int width, int height, int lineStep, int stride) {
  if (plane == nullptr) return;
  for (int y = 0; y < height; ++y) {
    uint8_t* row = plane + static_cast<int64_t>(lineStep) * y;
    for (int x = 0; x < width; ++x) row[static_cast<int64_t>(x) * stride] ^= 0xFF;
  }
}

bool IsOdd(int v) { return (v & 1) != 0; }

struct ClipBox {
  int left;
  int top;
  int width;
  int height;
};

ClipBox ClampClip(int l, int t, int r, int b, int width, int height) {
  const int right = std::min(r, width);
  const int bottom = std::min(b, height);
  const int left = std::max(l, 0);
  const int top = std::max(t, 0);
  return ClipBox{left, top, Wrap32Sub(right, left), Wrap32Sub(bottom, top)};
}

void CopyRows(uint8_t* dst, int dstStep, const uint8_t* src, int64_t srcStart, int srcStep, int rows, int rowBytes) {
  if (dst == nullptr || src == nullptr || rowBytes <= 0) return;
  for (int i = 0; i < rows; ++i) {
    std::memcpy(dst + static_cast<int64_t>(dstStep) * i, src + srcStart + static_cast<int64_t>(srcStep) * i,
                static_cast<size_t>(rowBytes));
  }
}

// The clip writes chroma row i/2 for i < H/2: only the upper half of the new chroma rows is filled,
// each row twice from the same source row. Callers rely on this layout; keep it.
void CopyClippedChroma(tag_CDibYCC420* dst, const tag_CDibYCC420* src, const ClipBox& box) {
  if (box.height < 2 || dst->cbcr == nullptr || src->cbcr == nullptr || box.width <= 0) return;
  const int64_t srcColumn = box.left & ~1;
  for (int i = 0; i < box.height / 2; ++i) {
    const int64_t srcRow = static_cast<int64_t>(src->lineStep) * ((box.top + i) / 2);
    std::memcpy(dst->cbcr + static_cast<int64_t>(box.width) * (i >> 1), src->cbcr + srcRow + srcColumn,
                static_cast<size_t>(box.width));
  }
}

}  // namespace

uint8_t* CDibY_GetYPointer(tag_CDibY* dib, int x, int y) {
  return dib->pixels + static_cast<int64_t>(dib->lineStep) * y + x;
}

uint8_t* CDibY_GetYPointerExt(int x, int y, uint8_t* base, int lineStep) { return base + Wrap32Mul(lineStep, y) + x; }

uint8_t* CDibYCC420_GetYPointerExt(int x, int y, uint8_t* base, int lineStep) {
  return CDibY_GetYPointerExt(x, y, base, lineStep);
}

uint8_t* CDibYCC_GetYPointer(tag_CDibYCC422* dib, int x, int y) {
  return dib->pixels + static_cast<int64_t>(dib->lineStep) * y + 2 * static_cast<int64_t>(x);
}

uint8_t* CDibYCC_GetYPointerExt(int x, int y, uint8_t* base, int lineStep) {
  return base + Wrap32Mul(lineStep, y) + Wrap32Mul(2, x);
}

// Byte 2x+1 for even x and 2x-1 for odd x: both pixels of a pair share the pair's Cb byte.
uint8_t* CDibYCC_GetCbPointer(tag_CDibYCC422* dib, int x, int y) {
  const int64_t x2 = 2 * static_cast<int64_t>(x);
  return dib->pixels + static_cast<int64_t>(dib->lineStep) * y + x2 + ((~x2) & 2) - 1;
}

uint8_t* CDibYCC_GetCbPointerExt(int x, int y, uint8_t* base, int lineStep) {
  const int32_t x2 = Wrap32Mul(2, x);
  return base + Wrap32Mul(lineStep, y) + Wrap32Sub(Wrap32Add(x2, (~x2) & 2), 1);
}

uint8_t* CDibYCC420_GetYPointer(tag_CDibYCC420* dib, int x, int y) {
  return dib->y + static_cast<int64_t>(dib->lineStep) * y + x;
}

uint8_t* CDibYCC420_GetCbPointer(tag_CDibYCC420* dib, int x, int y) {
  return dib->cbcr + static_cast<int64_t>(dib->lineStep) * (y / 2) + (x & ~1);
}

uint8_t* CDibYCC420_GetCbPointerExt(int x, int y, uint8_t* base, int lineStep) {
  return base + Wrap32Mul(lineStep, y / 2) + (x & ~1);
}

tag_CDibY* CDibY_newCDibY(int width, int height, int lineStep) {
  return CDibY_newCDibYwithImage(nullptr, width, height, lineStep);
}

tag_CDibY* CDibY_newCDibYwithImage(const uint8_t* image, int width, int height, int lineStep) {
  tag_CDibY* dib = AllocRecord<tag_CDibY>();
  if (dib == nullptr) return nullptr;
  CDibY_Initialize(dib, image, width, height, lineStep);
  return dib;
}

void CDibY_Initialize(tag_CDibY* dib, const uint8_t* image, int width, int height, int lineStep) {
  if (dib == nullptr) return;
  SetNumbers(dib, width, height, lineStep);
  dib->pixels = AllocPlaneCopy(image, PlaneBytes(dib), lineStep);
}

void CDibY_delCDibY(tag_CDibY* dib) {
  if (dib == nullptr) return;
  std::free(dib->pixels);
  std::free(dib);
}

void CDibY_ResetContents(tag_CDibY* dib) { ZeroPlane(dib->pixels, PlaneBytes(dib)); }

uint8_t* CDibY_CopyCDibCore(tag_CDibY* dib) { return AllocPlaneCopy(dib->pixels, PlaneBytes(dib), dib->lineStep); }

tag_CDibY* CDibY_CopyCDibY(tag_CDibY* dib) {
  return CDibY_newCDibYwithImage(dib->pixels, dib->width, dib->height, dib->lineStep);
}

void CDibY_Inverse(tag_CDibY* dib) { InvertRows(dib->pixels, dib->width, dib->height, dib->lineStep, 1); }

tag_CDibY* CDibY_newCDibYNaive() {
  tag_CDibY* dib = AllocRecord<tag_CDibY>();
  if (dib == nullptr) return nullptr;
  dib->pixels = nullptr;
  SetNumbers(dib, -1, -1, -1);
  return dib;
}

uint8_t* CDibY_ConvertYCCCore(tag_CDibY* dib) {
  const int32_t outStep = Wrap32Mul(2, dib->lineStep);
  const int32_t bytes = Wrap32Mul(dib->height, outStep);
  uint8_t* out = AllocPlane(bytes, outStep);
  if (out == nullptr) return nullptr;
  if (bytes > 0) std::memset(out, kConvertedChroma, static_cast<size_t>(bytes));
  if (dib->pixels == nullptr) return out;
  for (int y = 0; y < dib->height; ++y) {
    const uint8_t* src = dib->pixels + static_cast<int64_t>(dib->lineStep) * y;
    uint8_t* dst = out + static_cast<int64_t>(outStep) * y;
    for (int x = 0; x < dib->width; ++x) dst[2 * static_cast<int64_t>(x)] = src[x];
  }
  return out;
}

tag_CDibYCC422* CDibYCC_newCDibYCC422(int width, int height, int lineStep) {
  return CDibY_newCDibY(width, height, lineStep);
}

tag_CDibYCC422* CDibYCC_newCDibYCC422withImage(const uint8_t* image, int width, int height, int lineStep) {
  return CDibY_newCDibYwithImage(image, width, height, lineStep);
}

void CDibYCC_Initialize(tag_CDibYCC422* dib, const uint8_t* image, int width, int height, int lineStep) {
  CDibY_Initialize(dib, image, width, height, lineStep);
}

void CDibYCC_delCDibYCC422(tag_CDibYCC422* dib) { CDibY_delCDibY(dib); }

void CDibYCC_ResetContents(tag_CDibYCC422* dib) { CDibY_ResetContents(dib); }

uint8_t* CDibYCC_CopyCDibCore(tag_CDibYCC422* dib) { return CDibY_CopyCDibCore(dib); }

tag_CDibYCC422* CDibYCC_CopyCDibYCC(tag_CDibYCC422* dib) { return CDibY_CopyCDibY(dib); }

void CDibYCC_Inverse(tag_CDibYCC422* dib) { InvertRows(dib->pixels, dib->width, dib->height, dib->lineStep, 2); }

tag_CDibYCC422* CDibYCC_ClipCDibRect(tag_CDibYCC422* dib, OT_RECT rect) {
  return CDibYCC_ClipCDib(dib, &rect.left, &rect.top, &rect.right, &rect.bottom);
}

// Odd horizontal edges are evened inward and written back; the vertical edges are left alone.
tag_CDibYCC422* CDibYCC_ClipCDib(tag_CDibYCC422* dib, int* l, int* t, int* r, int* b) {
  if (IsOdd(*l)) *l = Wrap32Add(*l, 1);
  if (IsOdd(*r)) *r = Wrap32Sub(*r, 1);
  const ClipBox box = ClampClip(*l, *t, *r, *b, dib->width, dib->height);
  const int lineStep = Wrap32Mul(2, box.width);
  tag_CDibYCC422* out = CDibY_newCDibY(box.width, box.height, lineStep);
  if (out == nullptr) return nullptr;
  const int64_t srcStart = static_cast<int64_t>(dib->lineStep) * box.top + 2 * static_cast<int64_t>(box.left);
  CopyRows(out->pixels, lineStep, dib->pixels, srcStart, dib->lineStep, box.height, lineStep);
  return out;
}

tag_CDibYCC420* CDibYCC420_newCDibYCC420(int width, int height, int lineStep) {
  return CDibYCC420_newCDibYCC420withImage(nullptr, nullptr, width, height, lineStep);
}

tag_CDibYCC420* CDibYCC420_newCDibYCC420withImage(const uint8_t* yImage, const uint8_t* cbcrImage, int width,
                                                  int height, int lineStep) {
  tag_CDibYCC420* dib = AllocRecord<tag_CDibYCC420>();
  if (dib == nullptr) return nullptr;
  CDibYCC420_Initialize(dib, yImage, cbcrImage, width, height, lineStep);
  return dib;
}

void CDibYCC420_Initialize(tag_CDibYCC420* dib, const uint8_t* yImage, const uint8_t* cbcrImage, int width, int height,
                           int lineStep) {
  if (dib == nullptr) return;
  SetNumbers(dib, width, height, lineStep);
  dib->y = AllocPlaneCopy(yImage, LumaBytes(dib), lineStep);
  dib->cbcr = AllocPlaneCopy(cbcrImage, ChromaBytes(dib), lineStep);
}

void CDibYCC420_delCDibYCC420(tag_CDibYCC420* dib) {
  if (dib == nullptr) return;
  std::free(dib->y);
  std::free(dib->cbcr);
  std::free(dib);
}

void CDibYCC420_ResetContents(tag_CDibYCC420* dib) {
  ZeroPlane(dib->y, LumaBytes(dib));
  ZeroPlane(dib->cbcr, ChromaBytes(dib));
}

tag_CDibYCC420* CDibYCC420_CopyCDibYCC(tag_CDibYCC420* dib) {
  return CDibYCC420_newCDibYCC420withImage(dib->y, dib->cbcr, dib->width, dib->height, dib->lineStep);
}

void CDibYCC420_Inverse(tag_CDibYCC420* dib) { InvertRows(dib->y, dib->width, dib->height, dib->lineStep, 1); }

tag_CDibYCC420* CDibYCC420_ClipCDibRect(tag_CDibYCC420* dib, OT_RECT rect) {
  return CDibYCC420_ClipCDib(dib, &rect.left, &rect.top, &rect.right, &rect.bottom);
}

// All four edges are evened inward and written back, so the cut starts on a chroma block.
tag_CDibYCC420* CDibYCC420_ClipCDib(tag_CDibYCC420* dib, int* l, int* t, int* r, int* b) {
  if (IsOdd(*l)) *l = Wrap32Add(*l, 1);
  if (IsOdd(*t)) *t = Wrap32Add(*t, 1);
  if (IsOdd(*r)) *r = Wrap32Sub(*r, 1);
  if (IsOdd(*b)) *b = Wrap32Sub(*b, 1);
  const ClipBox box = ClampClip(*l, *t, *r, *b, dib->width, dib->height);
  tag_CDibYCC420* out = CDibYCC420_newCDibYCC420(box.width, box.height, box.width);
  if (out == nullptr) return nullptr;
  const int64_t srcStart = static_cast<int64_t>(dib->lineStep) * box.top + box.left;
  CopyRows(out->y, box.width, dib->y, srcStart, dib->lineStep, box.height, box.width);
  CopyClippedChroma(out, dib, box);
  return out;
}
