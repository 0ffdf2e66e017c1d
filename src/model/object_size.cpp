// TEMPORARY STUB: replaced by the real implementation.
#include "model/object_size.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
void GetObjectSize_Obj(CMeanShiftTracker* tracker, uint8_t* weights, int w, int h) {}
OT_RECT GetSizeVH(uint8_t* weights, int w, int h, OT_RECT rect, int threshold, bool vertical, bool horizontal) { return OT_RECT{0, 0, 0, 0}; }
