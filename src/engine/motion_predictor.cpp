#include "engine/motion_predictor.h"

#include "platform/arith.h"

namespace {

// Fewer earlier entries than this give too short a track to extrapolate from.
constexpr size_t kMinEntriesToPredict = 4;

}  // namespace

void MotionPredictor::SetPredictorOptions(int horizon, int maxHistory) {
  m_nHorizon = horizon;
  m_nMaxHistory = maxHistory;
}

void MotionPredictor::Reset() { m_history.clear(); }

int MotionPredictor::GetMotion(MotionVector* in, MotionVector* out) {
  *out = *in;
  if (m_history.empty()) {
    m_history.push_front(*in);
    return 0;
  }

  const size_t k = m_history.size();
  const MotionVector& oldest = m_history.back();
  // The successive differences along the list telescope to newest minus oldest; in double
  // precision that sum is exact.
  const double sumX = static_cast<double>(in->x) - static_cast<double>(oldest.x);
  const double sumY = static_cast<double>(in->y) - static_cast<double>(oldest.y);
  m_history.push_front(*in);

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

  if (static_cast<int64_t>(m_history.size()) > m_nMaxHistory) m_history.pop_back();
  return predicted;
}
