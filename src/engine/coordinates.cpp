// TEMPORARY STUB: replaced by the real implementation.
#include "engine/coordinates.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
void ConvertPixelCoordinateToAndroidSystem(int& left, int& top, int& right, int& bottom, int width, int height) {}
int PixelToFocusUnits(int v, int size) { return 0; }
