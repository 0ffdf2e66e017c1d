// TEMPORARY STUB: replaced by the real implementation.
#include "tracking/driver.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
int OTK_ObjTracking(uint8_t* y, uint8_t* cbcr, int width, int height, int lineStep, OT_RECT* rect, int* moveEvent, int* sizeEvent, int* moveX, int* moveY, int* state) { return 0; }
int ActionMotionEventM(OT_RECT r) { return 0; }
int ActionMotionEventS(OT_RECT r) { return 0; }
int ActionMotionEventMove(int* dx, int* dy) { return 0; }
int ActionMotionEventSize() { return 0; }
