// TEMPORARY STUB: replaced by the real implementation.
#include "image/flood_fill.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
void SetOriginalImageYCC420(tag_CFloodFill* ff, uint8_t* y, uint8_t* cbcr, int width, int height, int lineStep) {}
void SetOriginalImage(tag_CFloodFill* ff, uint8_t* image, int width, int height, int lineStep) {}
void SetMaskDibYCC420(tag_CFloodFill* ff, tag_CDibY* dib) {}
void SetMaskDibYCC(tag_CFloodFill* ff, tag_CDibY* dib) {}
void PaintY(tag_CFloodFill* ff, int x, int y) {}
void CFFColor_SetThreshold(tag_CFloodFill* ff, int t) {}
void CFFColor_SetPivotColorYCC420(tag_CFloodFill* ff, tagOT_POINT point) {}
void CFFColor_SetPivotColorYCC(tag_CFloodFill* ff, tagOT_POINT point) {}
void CFFColor_FloodFillYCC420(tag_CFloodFill* ff, tagOT_POINT seed, int threshold, bool invert) {}
void CFFColor_FloodFill(tag_CFloodFill* ff, tagOT_POINT seed, int threshold, bool invert) {}
bool CFFColor_CheckDistanceYCC420(tag_CFloodFill* ff, tagOT_POINT point) { return false; }
bool CFFColor_CheckDistanceYCC(tag_CFloodFill* ff, tagOT_POINT point) { return false; }
void CFFColor_RunFloodFillYCC420(tag_CFloodFill* ff, tagOT_POINT seed, bool invert) {}
void CFFColor_RunFloodFillYCC(tag_CFloodFill* ff, tagOT_POINT seed, bool invert) {}
void CFFColor_CheckDistanceYCC420_lineadd(tag_CFloodFill* ff, int xl, int xr, int row, tag_CPointArray* queue) {}
