// Segmentation of the touched object: nine colour fills around the touch, the bounding rectangle,
// and hole filling.
#pragma once

#include <cstdint>

#include "image/dib.h"
#include "image/ot_types.h"
#include "platform/export.h"

// Returns the hole-filled mask (width*height bytes, released by the caller with free) or null.
PLOVIX_EXPORT uint8_t* OTKIS_SetDibandSegmentYCC420(uint8_t* y, uint8_t* cbcr, int width, int height, int lineStep,
                                                    int tx, int ty, int* l, int* t, int* r, int* b);
PLOVIX_EXPORT uint8_t* Segment_Original(uint8_t* y, uint8_t* cbcr, int width, int height, int lineStep, int tx,
                                        int ty, int* l, int* t, int* r, int* b);
PLOVIX_EXPORT OT_RECT GetClosedRect(tag_CDibY* mask);
