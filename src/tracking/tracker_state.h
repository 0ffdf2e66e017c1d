// The tracker record and every module-level tracking variable: one tracking context per process.
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "platform/export.h"

struct CMeanShiftTracker {
  OT_RECT rcTrack;     // search rectangle: start and result of each step
  OT_RECT rcObject;    // measured object rectangle, what the driver reports
  OT_RECT rcLastGood;  // last rectangle reported while tracking
  int32_t nObjW;
  int32_t nObjH;
  int32_t nWinW;
  int32_t nWinH;
  int32_t nInitDensity;  // 0 until the first size estimation after a selection
  int32_t nWeightThr;
  int32_t nDensity;
  int32_t nFillRate;
  bool bFirstFrame;
  int32_t nLostCount;
  int32_t nFoundCount;
  int32_t nState;  // 0 tracking, 1 lost
  int64_t llLostTimeMs;
  int32_t histModel[32][32][16];  // ratio model, bins 0..255
  float fAvgDensity;
  float fAvgFillRate;
  float fFillPerDensity;
  int32_t nAvgCount;
  int32_t nInitFillRate;
};

PLOVIX_EXPORT extern CMeanShiftTracker gMst;

PLOVIX_EXPORT extern int m_nOT;       // 1 once an object has been selected
PLOVIX_EXPORT extern int Valid_cnt;   // frames spent lost, counted up to 100
PLOVIX_EXPORT extern bool Valid_flg;  // lost long enough for the block search
PLOVIX_EXPORT extern int NCC_cnt;     // phase of the every-third-frame template check
PLOVIX_EXPORT extern int score_normcrosscorr;

// Current luma template (packed rows) and the template taken at selection.
PLOVIX_EXPORT extern uint8_t* pObj_window;
PLOVIX_EXPORT extern int obj_W;
PLOVIX_EXPORT extern int obj_H;
PLOVIX_EXPORT extern uint8_t* pObj_Seg_window;
PLOVIX_EXPORT extern int obj_sW;
PLOVIX_EXPORT extern int obj_sH;

PLOVIX_EXPORT extern int LostCount;  // frames reported as temporarily lost (driver)

// Driver's movement and size windows and the last direction codes.
constexpr int kMoveWindowSlots = 4;
constexpr int kSizeWindowSlots = 3;
PLOVIX_EXPORT extern OT_RECT otDirM[kMoveWindowSlots];
PLOVIX_EXPORT extern int g_nDirMCount;
PLOVIX_EXPORT extern OT_RECT otDirS[kSizeWindowSlots];
PLOVIX_EXPORT extern int g_nDirSCount;
PLOVIX_EXPORT extern int g_nLastMoveEvent;
PLOVIX_EXPORT extern int g_nLastSizeEvent;

PLOVIX_EXPORT void SetTrackRect_Obj(CMeanShiftTracker* t, OT_RECT r);
