// TEMPORARY STUB: replaced by the real implementation.
#include "tracking/track_step.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
int Track_YCC420BUNCH_Obj(CMeanShiftTracker* t, uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep) { return 0; }
