// TEMPORARY STUB: replaced by the real implementation.
#include "model/back_projection.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
void GetBackProjectionImage_YCC420BUNCH_Obj_C(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep, uint8_t* weights, OT_RECT rect) {}
void GetBackProjectionImage_YCC420BUNCH_Obj(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep, uint8_t* weights, OT_RECT rect) {}
void BackProjectBlocks(const int (*hist)[32][16], const uint8_t* y, const uint8_t* cbcr, int w, int lineStep,
                       uint8_t* weights, int left, int top, int right, int bottom) {}
