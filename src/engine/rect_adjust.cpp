// TEMPORARY STUB: replaced by the real implementation.
#include "engine/rect_adjust.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
void AdjustTrackRect(int sensorType, int prevW, int prevH, int curW, int curH) {}
int ResizeTrackRect(float prevZoom, float curZoom, int width, int height) { return 0; }
