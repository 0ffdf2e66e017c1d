// TEMPORARY STUB: replaced by the real implementation.
#include "image/dib.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
uint8_t* CDibY_GetYPointer(tag_CDibY* dib, int x, int y) { return nullptr; }
uint8_t* CDibY_GetYPointerExt(int x, int y, uint8_t* base, int lineStep) { return nullptr; }
uint8_t* CDibYCC420_GetYPointerExt(int x, int y, uint8_t* base, int lineStep) { return nullptr; }
uint8_t* CDibYCC_GetYPointer(tag_CDibYCC422* dib, int x, int y) { return nullptr; }
uint8_t* CDibYCC_GetYPointerExt(int x, int y, uint8_t* base, int lineStep) { return nullptr; }
uint8_t* CDibYCC_GetCbPointer(tag_CDibYCC422* dib, int x, int y) { return nullptr; }
uint8_t* CDibYCC_GetCbPointerExt(int x, int y, uint8_t* base, int lineStep) { return nullptr; }
uint8_t* CDibYCC420_GetYPointer(tag_CDibYCC420* dib, int x, int y) { return nullptr; }
uint8_t* CDibYCC420_GetCbPointer(tag_CDibYCC420* dib, int x, int y) { return nullptr; }
uint8_t* CDibYCC420_GetCbPointerExt(int x, int y, uint8_t* base, int lineStep) { return nullptr; }
tag_CDibY* CDibY_newCDibY(int width, int height, int lineStep) { return nullptr; }
tag_CDibY* CDibY_newCDibYwithImage(const uint8_t* image, int width, int height, int lineStep) { return nullptr; }
void CDibY_Initialize(tag_CDibY* dib, const uint8_t* image, int width, int height, int lineStep) {}
void CDibY_delCDibY(tag_CDibY* dib) {}
void CDibY_ResetContents(tag_CDibY* dib) {}
uint8_t* CDibY_CopyCDibCore(tag_CDibY* dib) { return nullptr; }
tag_CDibY* CDibY_CopyCDibY(tag_CDibY* dib) { return nullptr; }
void CDibY_Inverse(tag_CDibY* dib) {}
tag_CDibY* CDibY_newCDibYNaive() { return nullptr; }
uint8_t* CDibY_ConvertYCCCore(tag_CDibY* dib) { return nullptr; }
tag_CDibYCC422* CDibYCC_newCDibYCC422(int width, int height, int lineStep) { return nullptr; }
tag_CDibYCC422* CDibYCC_newCDibYCC422withImage(const uint8_t* image, int width, int height, int lineStep) { return nullptr; }
void CDibYCC_Initialize(tag_CDibYCC422* dib, const uint8_t* image, int width, int height, int lineStep) {}
void CDibYCC_delCDibYCC422(tag_CDibYCC422* dib) {}
void CDibYCC_ResetContents(tag_CDibYCC422* dib) {}
uint8_t* CDibYCC_CopyCDibCore(tag_CDibYCC422* dib) { return nullptr; }
tag_CDibYCC422* CDibYCC_CopyCDibYCC(tag_CDibYCC422* dib) { return nullptr; }
void CDibYCC_Inverse(tag_CDibYCC422* dib) {}
tag_CDibYCC422* CDibYCC_ClipCDibRect(tag_CDibYCC422* dib, OT_RECT rect) { return nullptr; }
tag_CDibYCC422* CDibYCC_ClipCDib(tag_CDibYCC422* dib, int* l, int* t, int* r, int* b) { return nullptr; }
tag_CDibYCC420* CDibYCC420_newCDibYCC420(int width, int height, int lineStep) { return nullptr; }
tag_CDibYCC420* CDibYCC420_newCDibYCC420withImage(const uint8_t* yImage, const uint8_t* cbcrImage, int width, int height, int lineStep) { return nullptr; }
void CDibYCC420_Initialize(tag_CDibYCC420* dib, const uint8_t* yImage, const uint8_t* cbcrImage, int width, int height, int lineStep) {}
void CDibYCC420_delCDibYCC420(tag_CDibYCC420* dib) {}
void CDibYCC420_ResetContents(tag_CDibYCC420* dib) {}
tag_CDibYCC420* CDibYCC420_CopyCDibYCC(tag_CDibYCC420* dib) { return nullptr; }
void CDibYCC420_Inverse(tag_CDibYCC420* dib) {}
tag_CDibYCC420* CDibYCC420_ClipCDibRect(tag_CDibYCC420* dib, OT_RECT rect) { return nullptr; }
tag_CDibYCC420* CDibYCC420_ClipCDib(tag_CDibYCC420* dib, int* l, int* t, int* r, int* b) { return nullptr; }
