// The colour model: int[32][32][16] histograms indexed [Cb >> 3][Cr >> 3][Y >> 4], filled per 2x2
// luma block with the block's one chroma pair, and the ratio step that turns a model into weights.
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "platform/export.h"

constexpr int kHistCbBins = 32;
constexpr int kHistCrBins = 32;
constexpr int kHistYBins = 16;
constexpr int kHistBins = kHistCbBins * kHistCrBins * kHistYBins;

typedef int32_t (*HistPtr)[kHistCrBins][kHistYBins];

// Accumulate (image first, histogram behind the rectangle).
PLOVIX_EXPORT void GetHistogram_YCC420BUNCH_Obj(uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep, OT_RECT rect,
                                                int (*hist)[32][16]);
PLOVIX_EXPORT void GetMaskedHistogram_YCC420BUNCH(uint8_t* y, uint8_t* cbcr, int maskStride, int h, int lineStep,
                                                  OT_RECT rect, int (*hist)[32][16], uint8_t* mask);
// Build from scratch (histogram first).
PLOVIX_EXPORT void SetModelRect_YCC420BUNCH_Obj(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w, int h,
                                                int lineStep, OT_RECT rect);
PLOVIX_EXPORT void SetModelMaskedRect_YCC420BUNCH_Obj(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w, int h,
                                                      int lineStep, OT_RECT rect, uint8_t* mask);
PLOVIX_EXPORT void SetModel_YCC420BUNCH_Obj(int (*hist)[32][16], uint8_t* y, uint8_t* cbcr, int w, int h,
                                            int lineStep);

// Turns model into the ratio model against scene: 0 where the scene bin is 0, else
// min((model << 8) / scene, 255).
void MakeRatioModel(int (*model)[32][16], const int (*scene)[32][16]);
