// What a run produced, frame by frame, reduced to the numbers the summary and the report show:
// frames per state, touches, time per frame, and the accuracy against a known true position.
#pragma once

#include <vector>

#include "session.h"

namespace plovix_replay {

struct FrameSummary {
  long index = 0;
  int ret = 0;
  int state = 0;
  bool hasBox = false;
  bool touched = false;
  // Centres in input pixels (the clip's own size, before any scaling); valid when hasBox.
  double centreX = 0.0;
  double centreY = 0.0;
  double predictedX = 0.0;
  double predictedY = 0.0;
  double left = 0.0;  // measured box, input pixels
  double right = 0.0;
  double top = 0.0;
  double bottom = 0.0;
  int velocityX = 0;
  int velocityY = 0;
  double processMs = 0.0;
};

struct StateCounts {
  long notTracking = 0;
  long tracking = 0;
  long tempLost = 0;
  long refused = 0;  // process_plovix returned non-zero
  long other = 0;
};

struct TimingSummary {
  double mean = 0.0;
  double median = 0.0;
  double p90 = 0.0;
  double max = 0.0;
};

// The true object position of a frame in input pixels, and whether enough of it shows to count.
struct TruthPoint {
  double x = 0.0;
  double y = 0.0;
  bool visible = false;
};

struct Accuracy {
  long visibleFrames = 0;
  long scoredFrames = 0;  // visible and with a reported box: the frames the errors cover
  double meanError = 0.0;
  double p90Error = 0.0;
  long containedFrames = 0;  // visible frames whose reported box contains the true centre
  double containedShare = 0.0;
};

class RunStats : public FrameObserver {
 public:
  // inputWidth x inputHeight is the clip's own size, the unit of all centres.
  RunStats(int inputWidth, int inputHeight) : inputWidth_(inputWidth), inputHeight_(inputHeight) {}
  bool OnFrame(const FrameResult& result, const Picture& fed, std::string* error) override;

  const std::vector<FrameSummary>& frames() const { return frames_; }
  int inputWidth() const { return inputWidth_; }
  int inputHeight() const { return inputHeight_; }
  StateCounts CountStates() const;
  long Touches() const;
  TimingSummary Timing() const;
  // truth[i] belongs to frame i; frames beyond it are not scored.
  Accuracy Score(const std::vector<TruthPoint>& truth) const;

 private:
  int inputWidth_;
  int inputHeight_;
  std::vector<FrameSummary> frames_;
};

// Nearest-rank percentile (p in 0..1) of unsorted values; 0 for none.
double Percentile(std::vector<double> values, double p);

}  // namespace plovix_replay
