// Per-frame entry into tracking: runs the step on gMst, reports the rectangle or the last good one,
// ends tracking after a long loss, and classifies movement and size change.
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "platform/export.h"

constexpr int kMaxLostFrames = 100;

// Returns m_nOT (1) while tracking, 0 when not tracking or in an invalid state, -1 when the object
// has been lost too long. state may be null.
PLOVIX_EXPORT int OTK_ObjTracking(uint8_t* y, uint8_t* cbcr, int width, int height, int lineStep, OT_RECT* rect,
                                  int* moveEvent, int* sizeEvent, int* moveX, int* moveY, int* state);

class FrameIntake;

// The same over a working image that intake is still taking in (see TrackStep).
int TrackFrame(FrameIntake* intake, uint8_t* y, uint8_t* cbcr, int width, int height, int lineStep, OT_RECT* rect,
               int* moveEvent, int* sizeEvent, int* moveX, int* moveY, int* state);
