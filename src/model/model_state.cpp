#include "model/model_state.h"

int m_size_HistModel_Obj = 32 * 32 * 16 * static_cast<int>(sizeof(int));
int m_SceneModelHistogram[32][32][16] = {};

OT_RECT g_RectShowbox[3] = {};
int g_nRectIndex = -1;
int g_nRectStack = -1;
int g_nMovementStack = 0;
