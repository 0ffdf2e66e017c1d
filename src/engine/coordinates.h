// Pixels to focus-area units (-1000..1000 over the full frame).
#pragma once

#include "platform/export.h"

PLOVIX_EXPORT void ConvertPixelCoordinateToAndroidSystem(int& left, int& top, int& right, int& bottom, int width,
                                                         int height);
// One coordinate: truncate(float(v) / float(size) * 2000.0f + (-1000.0f)).
int PixelToFocusUnits(int v, int size);
