// TEMPORARY STUB: replaced by the real implementation.
#include "tracking/lost_detection.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
void CheckLostObject_Obj(CMeanShiftTracker* t, uint8_t* weights, int w, int h, int quality) {}
int CheckLostTracking_Obj_AT(CMeanShiftTracker* t, int ignored) { return 0; }
int CheckValidCandidate_Obj_AT(CMeanShiftTracker* t, int quality) { return 0; }
int CheckLostTracking_Obj(int density, int fillRate, int ignored) { return 0; }
int CheckValidCandidate_Obj(int density, int fillRate, int quality) { return 0; }
