// The tracking work of one frame: back projection, then follow (mean shift + size) or search.
#pragma once

#include <cstdint>

#include "platform/export.h"
#include "tracking/tracker_state.h"

PLOVIX_EXPORT int Track_YCC420BUNCH_Obj(CMeanShiftTracker* t, uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep);

class FrameIntake;

// The same over a working image (line step w) that intake is still taking in: the step takes in
// each part before it reads it. A null intake means the working image is complete.
int TrackStep(CMeanShiftTracker* t, FrameIntake* intake, uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep);
