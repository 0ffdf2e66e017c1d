// The tracking work of one frame: back projection, then follow (mean shift + size) or search.
#pragma once

#include <cstdint>

#include "platform/export.h"
#include "tracking/tracker_state.h"

PLOVIX_EXPORT int Track_YCC420BUNCH_Obj(CMeanShiftTracker* t, uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep);
