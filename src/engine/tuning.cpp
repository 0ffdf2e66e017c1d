#include "engine/tuning.h"

int g_MAX_OBJ_SIZE = 100;
int g_MIN_OBJ_SIZE = 20;
int g_MIN_OBJ_SIZE_HALF = 10;
int g_FF_SEARCH_OFFSET = 5;
