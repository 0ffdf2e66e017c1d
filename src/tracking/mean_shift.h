// Mean-shift searches over the weight image: follow the object, or search a wide fixed region.
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "platform/export.h"
#include "tracking/tracker_state.h"

class WeightColumnSums;
struct WeightImage;

// A search stops once its iteration count reaches this: at most 22 centroid computations.
constexpr int kMeanShiftMaxIterations = 21;

PLOVIX_EXPORT OT_RECT MeanShift_Obj(CMeanShiftTracker* t, uint8_t* weights, int w, int h, int* outSum, int eps);
// MeanShift_Obj over a weight image that may be projected as it is read.
OT_RECT FollowWeights(CMeanShiftTracker* t, const WeightImage& weights, int* outSum, int eps);
PLOVIX_EXPORT OT_RECT D_MeanShift_Obj(CMeanShiftTracker* t, uint8_t* weights, int w, int h, int x0, int y0,
                                      int* outSum, int eps);
// D_MeanShift_Obj over the weight image that sums were built for.
OT_RECT WideMeanShift(const WeightColumnSums& sums, int w, int h, int x0, int y0, int* outSum, int eps);
