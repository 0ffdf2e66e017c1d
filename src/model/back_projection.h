// Back projection: the weight of each pixel's colour under the ratio model, into a weight image.
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "platform/export.h"

// Complete form: all four pixels of each 2x2 block looked up.
PLOVIX_EXPORT void GetBackProjectionImage_YCC420BUNCH_Obj_C(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w,
                                                            int h, int lineStep, uint8_t* weights, OT_RECT rect);
// Fast form: the upper row of each block looked up and copied to the lower row.
PLOVIX_EXPORT void GetBackProjectionImage_YCC420BUNCH_Obj(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w,
                                                          int h, int lineStep, uint8_t* weights, OT_RECT rect);

// The complete form over [left, right) x [top, bottom), bounds already even and inside the frame:
// four look-ups per 2x2 block. Used by the tracking step.
void BackProjectBlocks(const int (*hist)[32][16], const uint8_t* y, const uint8_t* cbcr, int w, int lineStep,
                       uint8_t* weights, int left, int top, int right, int bottom);
