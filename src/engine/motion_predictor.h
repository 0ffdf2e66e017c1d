// Extrapolates the reported box a few frames ahead from its recent movement, so that the camera can
// lead a moving object.
#pragma once

#include <cstdint>
#include <list>

#include "platform/export.h"

struct MotionVector {
  int32_t x;  // centre
  int32_t y;
  int32_t left;
  int32_t top;
  int32_t right;
  int32_t bottom;
};

class PLOVIX_EXPORT MotionPredictor {
 public:
  MotionPredictor() = default;
  MotionPredictor(const MotionPredictor&) = delete;
  MotionPredictor& operator=(const MotionPredictor&) = delete;

  void SetPredictorOptions(int horizon, int maxHistory);
  void Reset();
  // Copies in to out, then moves out's centre m_nHorizon average steps ahead once more than three
  // earlier entries exist, and re-centres in's box on it. Returns 1 when a prediction was applied.
  int GetMotion(MotionVector* in, MotionVector* out);

 private:
  std::list<MotionVector> m_history;  // newest first
  int32_t m_nHorizon = 0;
  int32_t m_nMaxHistory = 0;
};
