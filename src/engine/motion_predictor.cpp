#include "engine/motion_predictor.h"

#include <algorithm>

#include "platform/arith.h"

namespace {

// Fewer earlier entries than this give too short a track to extrapolate from.
constexpr int32_t kMinEntriesToPredict = 4;

}  // namespace

void MotionPredictor::SetPredictorOptions(int horizon, int maxHistory) {
  m_nHorizon = horizon;
  m_nMaxHistory = maxHistory;
}

void MotionPredictor::Reset() { m_nCount = 0; }

const MotionVector& MotionPredictor::Oldest() const {
  return m_history[(m_nNewest - m_nCount + 1 + kHistoryCapacity) % kHistoryCapacity];
}

void MotionPredictor::Push(const MotionVector& in) {
  m_nNewest = (m_nNewest + 1) % kHistoryCapacity;
  m_history[m_nNewest] = in;
  m_nCount = std::min(m_nCount + 1, kHistoryCapacity);
}

int MotionPredictor::GetMotion(MotionVector* in, MotionVector* out) {
  *out = *in;
  if (m_nCount == 0) {
    Push(*in);
    return 0;
  }

  const int32_t k = m_nCount;
  const MotionVector& oldest = Oldest();
  // The successive differences along the history telescope to newest minus oldest; in double
  // precision that sum is exact.
  const double sumX = static_cast<double>(in->x) - static_cast<double>(oldest.x);
  const double sumY = static_cast<double>(in->y) - static_cast<double>(oldest.y);
  Push(*in);

  int predicted = 0;
  if (k >= kMinEntriesToPredict) {
    const double entries = static_cast<double>(k);
    const double horizon = static_cast<double>(m_nHorizon);
    out->x = TruncToInt(sumX / entries * horizon + static_cast<double>(in->x));
    out->y = TruncToInt(sumY / entries * horizon + static_cast<double>(in->y));
    predicted = 1;
  }

  const int32_t halfW = Wrap32Sub(in->right, in->left) / 2;
  const int32_t halfH = Wrap32Sub(in->bottom, in->top) / 2;
  out->left = Wrap32Sub(out->x, halfW);
  out->right = Wrap32Add(out->x, halfW);
  out->top = Wrap32Sub(out->y, halfH);
  out->bottom = Wrap32Add(out->y, halfH);

  // Once the history holds more than maxHistory entries it drops its oldest one, one per call.
  if (k + 1 > m_nMaxHistory) m_nCount = std::min(k, kHistoryCapacity);
  return predicted;
}
