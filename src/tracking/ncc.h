// Normalised cross-correlation of a rectangle of the luma plane against a luma template.
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "platform/export.h"

// Score -100..100; -100 for a missing template or a flat patch.
PLOVIX_EXPORT int matching_ncc(uint8_t* y, OT_RECT rect, int w, int h, uint8_t* tmpl, int tw, int th);
