// TEMPORARY STUB: replaced by the real implementation.
#include "tracking/mean_shift.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
OT_RECT MeanShift_Obj(CMeanShiftTracker* t, uint8_t* weights, int w, int h, int* outSum, int eps) { return OT_RECT{0, 0, 0, 0}; }
OT_RECT D_MeanShift_Obj(CMeanShiftTracker* t, uint8_t* weights, int w, int h, int x0, int y0, int* outSum, int eps) { return OT_RECT{0, 0, 0, 0}; }
