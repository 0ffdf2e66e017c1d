#include "run_stats.h"

#include <algorithm>
#include <cmath>

#include "annotate.h"

namespace plovix_replay {

double Percentile(std::vector<double> values, double p) {
  if (values.empty()) return 0.0;
  std::sort(values.begin(), values.end());
  const double rank = std::ceil(p * static_cast<double>(values.size()));
  const size_t index = rank < 1.0 ? 0 : static_cast<size_t>(rank) - 1;
  return values[std::min(index, values.size() - 1)];
}

bool RunStats::OnFrame(const FrameResult& r, const Picture& /*fed*/, std::string* /*error*/) {
  FrameSummary s;
  s.index = r.index;
  s.ret = r.ret;
  s.state = r.record.nTrackState;
  s.hasBox = HasBox(r);
  s.touched = r.touched;
  s.processMs = r.processMs;
  if (s.hasBox) {
    const PlovixStruct& rec = r.record;
    // Focus units are relative to the frame, so they map to the clip's pixels whatever the
    // size the frame was fed at.
    s.left = FocusToPixel(rec.nLeft, inputWidth_);
    s.right = FocusToPixel(rec.nRight, inputWidth_);
    s.top = FocusToPixel(rec.nTop, inputHeight_);
    s.bottom = FocusToPixel(rec.nBottom, inputHeight_);
    s.centreX = (s.left + s.right) / 2.0;
    s.centreY = (s.top + s.bottom) / 2.0;
    s.predictedX = (FocusToPixel(rec.nPredictLeft, inputWidth_) +
                    FocusToPixel(rec.nPredictRight, inputWidth_)) /
                   2.0;
    s.predictedY = (FocusToPixel(rec.nPredictTop, inputHeight_) +
                    FocusToPixel(rec.nPredictBottom, inputHeight_)) /
                   2.0;
    s.velocityX = rec.nVelocityX;
    s.velocityY = rec.nVelocityY;
  }
  frames_.push_back(s);
  return true;
}

StateCounts RunStats::CountStates() const {
  StateCounts c;
  for (const FrameSummary& f : frames_) {
    if (f.ret != 0) {
      ++c.refused;
    } else if (f.state == PLOVIX_STATE_NOT_TRACKING) {
      ++c.notTracking;
    } else if (f.state == PLOVIX_STATE_TRACKING) {
      ++c.tracking;
    } else if (f.state == PLOVIX_STATE_TEMP_LOST) {
      ++c.tempLost;
    } else {
      ++c.other;
    }
  }
  return c;
}

long RunStats::Touches() const {
  return std::count_if(frames_.begin(), frames_.end(),
                       [](const FrameSummary& f) { return f.touched; });
}

TimingSummary RunStats::Timing() const {
  std::vector<double> ms;
  for (const FrameSummary& f : frames_) ms.push_back(f.processMs);
  TimingSummary t;
  if (ms.empty()) return t;
  double sum = 0.0;
  for (double v : ms) sum += v;
  t.mean = sum / static_cast<double>(ms.size());
  t.median = Percentile(ms, 0.5);
  t.p90 = Percentile(ms, 0.9);
  t.max = *std::max_element(ms.begin(), ms.end());
  return t;
}

Accuracy RunStats::Score(const std::vector<TruthPoint>& truth) const {
  Accuracy a;
  std::vector<double> errors;
  for (const FrameSummary& f : frames_) {
    if (f.index < 0 || static_cast<size_t>(f.index) >= truth.size()) continue;
    const TruthPoint& t = truth[f.index];
    if (!t.visible) continue;
    ++a.visibleFrames;
    if (!f.hasBox) continue;
    errors.push_back(std::hypot(f.centreX - t.x, f.centreY - t.y));
    if (t.x >= f.left && t.x <= f.right && t.y >= f.top && t.y <= f.bottom) ++a.containedFrames;
  }
  a.scoredFrames = static_cast<long>(errors.size());
  if (!errors.empty()) {
    double sum = 0.0;
    for (double e : errors) sum += e;
    a.meanError = sum / static_cast<double>(errors.size());
    a.p90Error = Percentile(errors, 0.9);
  }
  if (a.visibleFrames > 0) {
    a.containedShare =
        static_cast<double>(a.containedFrames) / static_cast<double>(a.visibleFrames);
  }
  return a;
}

}  // namespace plovix_replay
