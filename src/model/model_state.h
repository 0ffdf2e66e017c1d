// Module-level state of the model subsystem.
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "platform/export.h"

// Bytes cleared by every clearing of a histogram.
PLOVIX_EXPORT extern int m_size_HistModel_Obj;
// Histogram of the whole working frame at selection time.
PLOVIX_EXPORT extern int m_SceneModelHistogram[32][32][16];

// Size-estimation history (reset by selection and by the lost search).
PLOVIX_EXPORT extern OT_RECT g_RectShowbox[3];
PLOVIX_EXPORT extern int g_nRectIndex;
PLOVIX_EXPORT extern int g_nRectStack;
PLOVIX_EXPORT extern int g_nMovementStack;
