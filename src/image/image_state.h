// Module-level state of the image subsystem.
#pragma once

#include <cstdint>

#include "image/flood_fill.h"
#include "platform/export.h"

constexpr int kFloodScratchCapacity = 257;
constexpr int kFloodScratchFlushAt = 256;

PLOVIX_EXPORT extern tag_CFloodFill m_FF;
// Line step of the last segmented image.
PLOVIX_EXPORT extern int m_nLineStep;
// x coordinates collected by the 4:2:0 fill's row scan before they are queued.
extern int g_FloodScratch[kFloodScratchCapacity];
extern int g_FloodScratchCount;
