// Image records owned by the segmentation code: one 8-bit plane, interleaved 4:2:2, and 4:2:0
// (luma plane + interleaved chroma plane at half resolution), with free functions over them.
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "platform/export.h"

struct tag_CDibY {
  uint8_t* pixels;
  int32_t width;
  int32_t height;
  int32_t lineStep;
};

// The 4:2:2 record has the same fields and shares the single-plane routines.
typedef tag_CDibY tag_CDibYCC422;

struct tag_CDibYCC420 {
  uint8_t* y;
  uint8_t* cbcr;
  int32_t width;
  int32_t height;
  int32_t lineStep;
};

// Pixel addressing (no bounds checks).
PLOVIX_EXPORT uint8_t* CDibY_GetYPointer(tag_CDibY* dib, int x, int y);
PLOVIX_EXPORT uint8_t* CDibY_GetYPointerExt(int x, int y, uint8_t* base, int lineStep);
PLOVIX_EXPORT uint8_t* CDibYCC420_GetYPointerExt(int x, int y, uint8_t* base, int lineStep);
PLOVIX_EXPORT uint8_t* CDibYCC_GetYPointer(tag_CDibYCC422* dib, int x, int y);
PLOVIX_EXPORT uint8_t* CDibYCC_GetYPointerExt(int x, int y, uint8_t* base, int lineStep);
PLOVIX_EXPORT uint8_t* CDibYCC_GetCbPointer(tag_CDibYCC422* dib, int x, int y);
PLOVIX_EXPORT uint8_t* CDibYCC_GetCbPointerExt(int x, int y, uint8_t* base, int lineStep);
PLOVIX_EXPORT uint8_t* CDibYCC420_GetYPointer(tag_CDibYCC420* dib, int x, int y);
PLOVIX_EXPORT uint8_t* CDibYCC420_GetCbPointer(tag_CDibYCC420* dib, int x, int y);
PLOVIX_EXPORT uint8_t* CDibYCC420_GetCbPointerExt(int x, int y, uint8_t* base, int lineStep);

// Single plane.
PLOVIX_EXPORT tag_CDibY* CDibY_newCDibY(int width, int height, int lineStep);
PLOVIX_EXPORT tag_CDibY* CDibY_newCDibYwithImage(const uint8_t* image, int width, int height, int lineStep);
PLOVIX_EXPORT void CDibY_Initialize(tag_CDibY* dib, const uint8_t* image, int width, int height, int lineStep);
PLOVIX_EXPORT void CDibY_delCDibY(tag_CDibY* dib);
PLOVIX_EXPORT void CDibY_ResetContents(tag_CDibY* dib);
PLOVIX_EXPORT uint8_t* CDibY_CopyCDibCore(tag_CDibY* dib);
PLOVIX_EXPORT tag_CDibY* CDibY_CopyCDibY(tag_CDibY* dib);
PLOVIX_EXPORT void CDibY_Inverse(tag_CDibY* dib);
PLOVIX_EXPORT tag_CDibY* CDibY_newCDibYNaive();
PLOVIX_EXPORT uint8_t* CDibY_ConvertYCCCore(tag_CDibY* dib);

// 4:2:2 (the first seven are the single-plane routines under their 4:2:2 names).
PLOVIX_EXPORT tag_CDibYCC422* CDibYCC_newCDibYCC422(int width, int height, int lineStep);
PLOVIX_EXPORT tag_CDibYCC422* CDibYCC_newCDibYCC422withImage(const uint8_t* image, int width, int height, int lineStep);
PLOVIX_EXPORT void CDibYCC_Initialize(tag_CDibYCC422* dib, const uint8_t* image, int width, int height, int lineStep);
PLOVIX_EXPORT void CDibYCC_delCDibYCC422(tag_CDibYCC422* dib);
PLOVIX_EXPORT void CDibYCC_ResetContents(tag_CDibYCC422* dib);
PLOVIX_EXPORT uint8_t* CDibYCC_CopyCDibCore(tag_CDibYCC422* dib);
PLOVIX_EXPORT tag_CDibYCC422* CDibYCC_CopyCDibYCC(tag_CDibYCC422* dib);
PLOVIX_EXPORT void CDibYCC_Inverse(tag_CDibYCC422* dib);
PLOVIX_EXPORT tag_CDibYCC422* CDibYCC_ClipCDibRect(tag_CDibYCC422* dib, OT_RECT rect);
PLOVIX_EXPORT tag_CDibYCC422* CDibYCC_ClipCDib(tag_CDibYCC422* dib, int* l, int* t, int* r, int* b);

// 4:2:0.
PLOVIX_EXPORT tag_CDibYCC420* CDibYCC420_newCDibYCC420(int width, int height, int lineStep);
PLOVIX_EXPORT tag_CDibYCC420* CDibYCC420_newCDibYCC420withImage(const uint8_t* yImage, const uint8_t* cbcrImage,
                                                              int width, int height, int lineStep);
PLOVIX_EXPORT void CDibYCC420_Initialize(tag_CDibYCC420* dib, const uint8_t* yImage, const uint8_t* cbcrImage,
                                         int width, int height, int lineStep);
PLOVIX_EXPORT void CDibYCC420_delCDibYCC420(tag_CDibYCC420* dib);
PLOVIX_EXPORT void CDibYCC420_ResetContents(tag_CDibYCC420* dib);
PLOVIX_EXPORT tag_CDibYCC420* CDibYCC420_CopyCDibYCC(tag_CDibYCC420* dib);
PLOVIX_EXPORT void CDibYCC420_Inverse(tag_CDibYCC420* dib);
PLOVIX_EXPORT tag_CDibYCC420* CDibYCC420_ClipCDibRect(tag_CDibYCC420* dib, OT_RECT rect);
PLOVIX_EXPORT tag_CDibYCC420* CDibYCC420_ClipCDib(tag_CDibYCC420* dib, int* l, int* t, int* r, int* b);
