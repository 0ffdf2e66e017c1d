#include "image/image_state.h"

tag_CFloodFill m_FF = {nullptr, nullptr, nullptr, 0, 0, 0, 0};
int m_nLineStep = 0;
int g_FloodScratch[kFloodScratchCapacity] = {};
int g_FloodScratchCount = 0;
