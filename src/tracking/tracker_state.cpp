#include "tracking/tracker_state.h"

#include "platform/arith.h"

CMeanShiftTracker gMst = {};

int m_nOT = 0;
int Valid_cnt = 0;
bool Valid_flg = false;
int NCC_cnt = 0;
int score_normcrosscorr = 100;

uint8_t* pObj_window = nullptr;
int obj_W = 0;
int obj_H = 0;
uint8_t* pObj_Seg_window = nullptr;
int obj_sW = 0;
int obj_sH = 0;

int LostCount = 0;

OT_RECT otDirM[kMoveWindowSlots] = {};
int g_nDirMCount = 0;
OT_RECT otDirS[kSizeWindowSlots] = {};
int g_nDirSCount = 0;
int g_nLastMoveEvent = 0;
int g_nLastSizeEvent = 0;

void SetTrackRect_Obj(CMeanShiftTracker* t, OT_RECT r) {
  t->rcTrack = r;
  t->nObjW = t->nWinW = Wrap32Sub(r.right, r.left);
  t->nObjH = t->nWinH = Wrap32Sub(r.bottom, r.top);
}
