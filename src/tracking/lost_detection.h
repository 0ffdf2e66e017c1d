// Lost-object detection: five-frame hysteresis between tracking and lost, with thresholds derived
// from the object's own history.
#pragma once

#include <cstdint>

#include "platform/export.h"
#include "tracking/tracker_state.h"

PLOVIX_EXPORT void CheckLostObject_Obj(CMeanShiftTracker* t, uint8_t* weights, int w, int h, int quality);
PLOVIX_EXPORT int CheckLostTracking_Obj_AT(CMeanShiftTracker* t, int ignored);
PLOVIX_EXPORT int CheckValidCandidate_Obj_AT(CMeanShiftTracker* t, int quality);
PLOVIX_EXPORT int CheckLostTracking_Obj(int density, int fillRate, int ignored);
PLOVIX_EXPORT int CheckValidCandidate_Obj(int density, int fillRate, int quality);
