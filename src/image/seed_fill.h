// Scan-line seed fill with a fixed segment stack, and the hole filling of segmentation masks.
#pragma once

#include <cstdint>

#include "platform/export.h"

// A colour packed into 32 bits: Y in bits 0-7, Cb in 8-15, Cr in 16-23.
typedef uint32_t Pixel;

constexpr int kSeedStackCapacity = 10000;

struct PLOVIX_EXPORT SeedFill {
  int32_t width;
  int32_t height;
  uint8_t* image;
  uint8_t* chroma;
  uint8_t* filled;
  int32_t threshold;

  Pixel pixelread(int x, int y);
  void pixelwrite(int x, int y);
  bool compare(int x, int y, Pixel p);
  void doFill(int x, int y);
};

// Closes the holes of a 0/255 mask (width*height bytes); a, b, c are not read; the rectangle is
// read only. Returns a new mask (releasing the given one) or the given mask unchanged.
PLOVIX_EXPORT uint8_t* Segment_FillHoles(uint8_t* mask, int width, int height, int a, int b, int c, int* l, int* t,
                                         int* r, int* bottom);
