// Object size estimation: density, weight threshold, one grow/shrink step per frame, and the short
// rectangle history that steadies the reported rectangle.
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "platform/export.h"
#include "tracking/tracker_state.h"

PLOVIX_EXPORT void GetObjectSize_Obj(CMeanShiftTracker* tracker, uint8_t* weights, int w, int h);
PLOVIX_EXPORT OT_RECT GetSizeVH(uint8_t* weights, int w, int h, OT_RECT rect, int threshold, bool vertical,
                                bool horizontal);
