// The built-in demo: a deterministic synthetic full-HD clip rendered in code. A textured, noisy
// background with gradients and a few muted patches; an orange disc that moves along a curve and
// changes size; a grey pillar in front of it; and a camera zoom-in part way through, rendered about
// the frame centre the way a camera zooms. The true disc centre is known on every frame.
#pragma once

#include <vector>

#include "events.h"
#include "frame_source.h"
#include "run_stats.h"

namespace plovix_replay {

constexpr int kDemoWidth = 1920;
constexpr int kDemoHeight = 1080;
constexpr long kDemoFrames = 300;
constexpr int kDemoFps = 30;

class DemoClip : public FrameSource {
 public:
  explicit DemoClip(long frames = kDemoFrames);
  int Width() const override { return kDemoWidth; }
  int Height() const override { return kDemoHeight; }
  FrameRate Rate() const override { return {kDemoFps, 1}; }
  long KnownFrameCount() const override { return frames_; }
  ReadStatus Read(Picture* p, std::string* error) override;

  // The camera zoom of a frame (what the demo tells the engine and renders with).
  static float ZoomAt(long frame);
  // True centre of the disc in frame pixels, before it is known whether it shows.
  static TruthPoint CentreAt(long frame);
  // The session a camera app would run: a touch on the disc at frame 0 and the zoom changes.
  std::vector<Event> Events() const;
  // Truth of every frame rendered so far (visible: at least half the disc shows).
  const std::vector<TruthPoint>& Truth() const { return truth_; }

 private:
  void RenderBackground(double zoom, Picture* p) const;
  long RenderDisc(long frame, double zoom, Picture* p) const;
  void AddSensorNoise(long frame, Picture* p) const;

  long frames_;
  long next_ = 0;
  Picture world_;  // the background at zoom 1
  std::vector<TruthPoint> truth_;
};

}  // namespace plovix_replay
