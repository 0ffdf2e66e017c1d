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

struct WeightImage;

// The same two over a weight image that may be projected as it is read.
void EstimateObjectSize(CMeanShiftTracker* tracker, const WeightImage& weights);
OT_RECT SizeVH(const WeightImage& weights, OT_RECT rect, int threshold, bool vertical, bool horizontal);
