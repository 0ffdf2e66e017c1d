// TEMPORARY STUB: replaced by the real implementation.
#include "model/selection.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
int OTK_ObjTrackBgnSegment(uint8_t* luma, uint8_t* cbcr, int w, int h, int lineStep, int x, int y) { return 0; }
int OTK_ObjTrackBgnMasking(uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep, int left, int top, int right, int bottom, uint8_t* mask) { return 0; }
void Update_object(OT_RECT rect, int stride, uint8_t* src, uint8_t* dst) {}
void CropTemplate(const uint8_t* luma, int w, int h, OT_RECT rect, uint8_t* dst) {}
