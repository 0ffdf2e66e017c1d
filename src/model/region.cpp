// TEMPORARY STUB: replaced by the real implementation.
#include "model/region.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
int GetWeightCenter_Obj(uint8_t* weights, int stride, int h, OT_RECT rect, int* cx, int* cy) { return 0; }
int GetFilledRates_Obj(uint8_t* weights, int stride, int h, OT_RECT rect, int threshold) { return 0; }
int GetFilledPixels_Obj(uint8_t* weights, int stride, int h, OT_RECT rect, int threshold) { return 0; }
OT_RECT GetClosedRect(uint8_t* image, int left, int right, int top, int bottom, int stride, int unused) { return OT_RECT{0, 0, 0, 0}; }
OT_RECT MoveNoOutofImage_Obj(OT_RECT rect, int w, int h) { return OT_RECT{0, 0, 0, 0}; }
bool ValidRectangle_Obj(int w, int h, OT_RECT rect) { return false; }
int64_t SumWeightsInRect(const uint8_t* weights, int stride, int h, OT_RECT rect) { return 0; }
int32_t CountWeightsAbove(const uint8_t* weights, int stride, int h, OT_RECT rect, int threshold) { return 0; }
