// Size-derived tuning factors, shared by segmentation, selection and size estimation. Their
// initial values are those of a 270-line working image; the first frame recomputes them.
#pragma once

#include "platform/export.h"

PLOVIX_EXPORT extern int g_MAX_OBJ_SIZE;
PLOVIX_EXPORT extern int g_MIN_OBJ_SIZE;
PLOVIX_EXPORT extern int g_MIN_OBJ_SIZE_HALF;
PLOVIX_EXPORT extern int g_FF_SEARCH_OFFSET;
