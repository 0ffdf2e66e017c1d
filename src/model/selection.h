// Object selection: turns a touch into a tracked object (segmentation, bounds, model, templates).
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "platform/export.h"

// Returns 0 when nothing was selected, otherwise m_nOT (1).
PLOVIX_EXPORT int OTK_ObjTrackBgnSegment(uint8_t* luma, uint8_t* cbcr, int w, int h, int lineStep, int x, int y);
// Builds the model and initialises gMst for the rectangle; mask may be null. Returns m_nOT.
PLOVIX_EXPORT int OTK_ObjTrackBgnMasking(uint8_t* y, uint8_t* cbcr, int w, int h, int lineStep, int left, int top,
                                         int right, int bottom, uint8_t* mask);
// Template crop: packs the rows of rect from src (row step stride) into dst.
PLOVIX_EXPORT void Update_object(OT_RECT rect, int stride, uint8_t* src, uint8_t* dst);

// Crops rect (its width and height as given) from a w x h luma plane into dst, rows packed. A rect
// sticking out of the frame is shifted into it at the same size; where it is still larger than the
// frame, the nearest edge pixel repeats. An unordered rect leaves dst untouched.
void CropTemplate(const uint8_t* luma, int w, int h, OT_RECT rect, uint8_t* dst);
