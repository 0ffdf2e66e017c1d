// Measurements over the weight image and rectangle checks.
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "platform/export.h"

PLOVIX_EXPORT int GetWeightCenter_Obj(uint8_t* weights, int stride, int h, OT_RECT rect, int* cx, int* cy);
PLOVIX_EXPORT int GetFilledRates_Obj(uint8_t* weights, int stride, int h, OT_RECT rect, int threshold);
PLOVIX_EXPORT int GetFilledPixels_Obj(uint8_t* weights, int stride, int h, OT_RECT rect, int threshold);
// Bounding box of the non-zero bytes, inclusive; note the columns-first argument order.
PLOVIX_EXPORT OT_RECT GetClosedRect(uint8_t* image, int left, int right, int top, int bottom, int stride, int unused);
PLOVIX_EXPORT OT_RECT MoveNoOutofImage_Obj(OT_RECT rect, int w, int h);
PLOVIX_EXPORT bool ValidRectangle_Obj(int w, int h, OT_RECT rect);

// Internal sums shared with size estimation and the tracking step. The image is stride * h bytes;
// a pixel of rect whose linear index y * stride + x lies inside the image is read as it is (a column
// past the row end reads the next row), one outside counts as 0.
int64_t SumWeightsInRect(const uint8_t* weights, int stride, int h, OT_RECT rect);
// Number of pixels of rect whose weight is greater than threshold, same rule.
int32_t CountWeightsAbove(const uint8_t* weights, int stride, int h, OT_RECT rect, int threshold);

// Sum of the weights of rect and their first moments in absolute image coordinates, same rule. In
// unsigned 64-bit arithmetic: a negative column wraps the x moment.
struct WeightMoments {
  uint64_t sum = 0;
  uint64_t sumX = 0;
  uint64_t sumY = 0;
};
WeightMoments MomentsInRect(const uint8_t* weights, int stride, int h, OT_RECT rect);
