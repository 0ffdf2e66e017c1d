// Mean-shift searches over the weight image: follow the object, or search a wide fixed region.
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "platform/export.h"
#include "tracking/tracker_state.h"

constexpr int kMeanShiftMaxIterations = 21;  // stop once k > 21 - 1: at most 22 centroids

PLOVIX_EXPORT OT_RECT MeanShift_Obj(CMeanShiftTracker* t, uint8_t* weights, int w, int h, int* outSum, int eps);
PLOVIX_EXPORT OT_RECT D_MeanShift_Obj(CMeanShiftTracker* t, uint8_t* weights, int w, int h, int x0, int y0,
                                      int* outSum, int eps);
