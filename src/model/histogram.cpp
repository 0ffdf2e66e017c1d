// TEMPORARY STUB: replaced by the real implementation.
#include "model/histogram.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
void GetHistogram_YCC420BUNCH_Obj(uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep, OT_RECT rect, int (*hist)[32][16]) {}
void GetMaskedHistogram_YCC420BUNCH(uint8_t* y, uint8_t* cbcr, int maskStride, int h, int lineStep, OT_RECT rect, int (*hist)[32][16], uint8_t* mask) {}
void SetModelRect_YCC420BUNCH_Obj(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep, OT_RECT rect) {}
void SetModelMaskedRect_YCC420BUNCH_Obj(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep, OT_RECT rect, uint8_t* mask) {}
void SetModel_YCC420BUNCH_Obj(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep) {}
void MakeRatioModel(int (*model)[32][16], const int (*scene)[32][16]) {}
