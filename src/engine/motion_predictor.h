// Extrapolates the reported box a few frames ahead from its recent movement, so that the camera can
// lead a moving object.
#pragma once

#include <cstdint>

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
  // The history lives in a fixed ring of this many entries, the engine's history size; a larger
  // maxHistory keeps this many.
  static constexpr int kHistoryCapacity = 10;

  MotionPredictor() = default;
  MotionPredictor(const MotionPredictor&) = delete;
  MotionPredictor& operator=(const MotionPredictor&) = delete;

  void SetPredictorOptions(int horizon, int maxHistory);
  void Reset();
  // Copies in to out, then moves out's centre m_nHorizon average steps ahead once more than three
  // earlier entries exist, and re-centres in's box on it. Returns 1 when a prediction was applied.
  int GetMotion(MotionVector* in, MotionVector* out);

 private:
  const MotionVector& Oldest() const;
  // Adds in as the newest entry; with a full ring it takes the oldest entry's place.
  void Push(const MotionVector& in);

  MotionVector m_history[kHistoryCapacity] = {};
  int32_t m_nCount = 0;   // entries held
  int32_t m_nNewest = 0;  // slot of the newest entry
  int32_t m_nHorizon = 0;
  int32_t m_nMaxHistory = 0;
};
