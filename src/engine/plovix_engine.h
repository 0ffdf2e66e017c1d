// The engine object behind the opaque handle of the C entry points: its lifecycle and the
// processing of one preview frame.
#pragma once

#include <pthread.h>

#include <cstdint>

#include "engine/motion_predictor.h"
#include "image/ot_types.h"
#include "platform/export.h"
#include "plovixengine.h"

class PLOVIX_EXPORT PlovixEngine {
 public:
  PlovixEngine();
  ~PlovixEngine();
  PlovixEngine(const PlovixEngine&) = delete;
  PlovixEngine& operator=(const PlovixEngine&) = delete;

  int Init();
  int DeInit();
  // 0 for every processed frame, -1 for a refused format or a degenerate display box.
  int Process(PlovixStruct* rec);

  // Moves or shortens the box at the frame edges it crosses (extents capped at maxSize). Returns -1,
  // after clamping all the same, when the box was empty on entry.
  static int ValidateRect(int* left, int* right, int* top, int* bottom, int width, int height, int maxSize);

  bool m_bInitialized;
  bool m_bLastTrackOk;  // the previous frame ended with a confirmed tracking result
  MotionPredictor m_predictor;
  int32_t m_nPredictHorizon;  // informational: the predictor keeps its own copy
  bool m_bTracking;
  uint8_t* m_pWorkBuf;  // working image, owned; null until the first frame of a size
  OT_RECT m_trackRect;  // working pixels, written by the tracking driver
  int32_t m_nPrevWidth;  // input size the working buffer was made for
  int32_t m_nPrevHeight;
  int32_t m_nWorkWidth;
  int32_t m_nWorkHeight;
  int32_t m_nReqX;  // last request in working pixels
  int32_t m_nReqY;
  int32_t m_nResizeRate;
  int64_t m_lLastTimeMs;  // time of the last reported result; 0 means none
  int32_t m_nPrevCenterX;  // centre of the last predicted box, input pixels
  int32_t m_nPrevCenterY;
  float m_fPrevZoomRatio;  // -1.0 when unknown
  int32_t boxRealsize;  // side of the reported box, input pixels
  pthread_mutex_t m_mutex;  // held only while buffers are released
};
