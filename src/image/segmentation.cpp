// TEMPORARY STUB: replaced by the real implementation.
#include "image/segmentation.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
uint8_t* OTKIS_SetDibandSegmentYCC420(uint8_t* y, uint8_t* cbcr, int width, int height, int lineStep, int tx, int ty, int* l, int* t, int* r, int* b) { return nullptr; }
uint8_t* Segment_Original(uint8_t* y, uint8_t* cbcr, int width, int height, int lineStep, int tx, int ty, int* l, int* t, int* r, int* b) { return nullptr; }
OT_RECT GetClosedRect(tag_CDibY* mask) { return OT_RECT{0, 0, 0, 0}; }
