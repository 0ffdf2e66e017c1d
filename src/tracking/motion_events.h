// Direction and size codes from the driver's windows of recent rectangles.
#pragma once

#include "image/ot_types.h"
#include "platform/export.h"

// Append r to the movement window (four slots). Returns 1 once the window was already full.
PLOVIX_EXPORT int ActionMotionEventM(OT_RECT r);
// Append r to the size window (three slots). Returns 1 if it was full before this call and 0 when
// the count is past full (the asymmetry with ActionMotionEventM is kept).
PLOVIX_EXPORT int ActionMotionEventS(OT_RECT r);
// Direction code 0..8 of the newest rectangle against the mean of the three older ones; slides the
// window. Writes the movement (new minus old) to dx, dy unless it is too small to count (code 0).
PLOVIX_EXPORT int ActionMotionEventMove(int* dx, int* dy);
// Size-change code 0..8 of the newest rectangle against the mean of the window; slides the window.
PLOVIX_EXPORT int ActionMotionEventSize();
