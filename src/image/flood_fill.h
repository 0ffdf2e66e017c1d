// Colour flood fill: marks in a mask the 4-connected pixels around a seed whose colour lies within
// a threshold (sum of absolute Y, Cb, Cr differences) of the seed's colour.
#pragma once

#include <cstdint>

#include "image/dib.h"
#include "image/ot_types.h"
#include "image/point_array.h"
#include "platform/export.h"

struct tag_CFloodFill {
  tag_CDibYCC422* image422;
  tag_CDibYCC420* image420;
  tag_CDibY* mask;
  int32_t pivotY;
  int32_t pivotCb;
  int32_t pivotCr;
  int32_t threshold;
};

PLOVIX_EXPORT void SetOriginalImageYCC420(tag_CFloodFill* ff, uint8_t* y, uint8_t* cbcr, int width, int height,
                                          int lineStep);
PLOVIX_EXPORT void SetOriginalImage(tag_CFloodFill* ff, uint8_t* image, int width, int height, int lineStep);
PLOVIX_EXPORT void SetMaskDibYCC420(tag_CFloodFill* ff, tag_CDibY* dib);
PLOVIX_EXPORT void SetMaskDibYCC(tag_CFloodFill* ff, tag_CDibY* dib);
PLOVIX_EXPORT void PaintY(tag_CFloodFill* ff, int x, int y);
PLOVIX_EXPORT void CFFColor_SetThreshold(tag_CFloodFill* ff, int t);
PLOVIX_EXPORT void CFFColor_SetPivotColorYCC420(tag_CFloodFill* ff, tagOT_POINT point);
PLOVIX_EXPORT void CFFColor_SetPivotColorYCC(tag_CFloodFill* ff, tagOT_POINT point);
PLOVIX_EXPORT void CFFColor_FloodFillYCC420(tag_CFloodFill* ff, tagOT_POINT seed, int threshold, bool invert);
PLOVIX_EXPORT void CFFColor_FloodFill(tag_CFloodFill* ff, tagOT_POINT seed, int threshold, bool invert);
PLOVIX_EXPORT bool CFFColor_CheckDistanceYCC420(tag_CFloodFill* ff, tagOT_POINT point);
PLOVIX_EXPORT bool CFFColor_CheckDistanceYCC(tag_CFloodFill* ff, tagOT_POINT point);
PLOVIX_EXPORT void CFFColor_RunFloodFillYCC420(tag_CFloodFill* ff, tagOT_POINT seed, bool invert);
PLOVIX_EXPORT void CFFColor_RunFloodFillYCC(tag_CFloodFill* ff, tagOT_POINT seed, bool invert);
// Queues the passing pixels of one neighbouring row (internal to the 4:2:0 fill).
void CFFColor_CheckDistanceYCC420_lineadd(tag_CFloodFill* ff, int xl, int xr, int row, tag_CPointArray* queue);
