#include "tracking/driver.h"

#include "tracking/motion_events.h"
#include "tracking/track_step.h"
#include "tracking/tracker_state.h"

namespace {

constexpr int kStateTracking = 0;
constexpr int kStateLost = 1;
constexpr int kGaveUp = -1;

void ClassifyMotion(const OT_RECT& rect, int* moveEvent, int* sizeEvent, int* moveX, int* moveY) {
  if (ActionMotionEventM(rect) == 1) {
    g_nLastMoveEvent = ActionMotionEventMove(moveX, moveY);
    if (g_nLastMoveEvent == 0) {
      *moveX = 0;
      *moveY = 0;
    }
  }
  if (ActionMotionEventS(rect) == 1) g_nLastSizeEvent = ActionMotionEventSize();
  *moveEvent = g_nLastMoveEvent;
  *sizeEvent = g_nLastSizeEvent;
}

}  // namespace

int OTK_ObjTracking(uint8_t* y, uint8_t* cbcr, int width, int height, int lineStep, OT_RECT* rect, int* moveEvent,
                    int* sizeEvent, int* moveX, int* moveY, int* state) {
  return TrackFrame(nullptr, y, cbcr, width, height, lineStep, rect, moveEvent, sizeEvent, moveX, moveY, state);
}

int TrackFrame(FrameIntake* intake, uint8_t* y, uint8_t* cbcr, int width, int height, int lineStep, OT_RECT* rect,
               int* moveEvent, int* sizeEvent, int* moveX, int* moveY, int* state) {
  if (m_nOT < 1) {
    m_nOT = 0;
    return 0;
  }
  TrackStep(&gMst, intake, y, cbcr, width, height, lineStep);
  if (m_nOT != 1) return 0;

  *rect = gMst.rcObject;
  ClassifyMotion(*rect, moveEvent, sizeEvent, moveX, moveY);
  if (state != nullptr) *state = gMst.nState;

  if (gMst.nState == kStateLost) {
    // The 102nd consecutive lost frame ends tracking.
    if (LostCount > kMaxLostFrames) return kGaveUp;
    ++LostCount;
    *rect = gMst.rcLastGood;
    return m_nOT;
  }
  if (gMst.nState == kStateTracking) {
    gMst.rcLastGood = *rect;
    LostCount = 0;
    return m_nOT;
  }
  return 0;
}
