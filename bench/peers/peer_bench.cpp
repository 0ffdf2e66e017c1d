// OpenCV peers on the same frames and the same working size, each from the NV21 frame to its
// answer: the CamShift pipeline of OpenCV's tutorial and the KCF, CSRT and MOSSE trackers.
// OpenCV runs single-threaded, as the engine does.
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <string>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <opencv2/tracking.hpp>
#include <opencv2/tracking/tracking_legacy.hpp>
#include <opencv2/video/tracking.hpp>

#include "peers/intake.h"
#include "registry.h"
#include "timed_loop.h"

namespace plovix_bench {
namespace {

class Peer {
 public:
  virtual ~Peer() = default;
  virtual void Init(const Nv21Frame& f, const cv::Rect& object) = 0;
  // The object's box in working pixels after frame f.
  virtual cv::Rect Update(const Nv21Frame& f) = 0;
};

// The tutorial's recipe: a hue histogram of the selection over pixels with enough saturation and
// value; per frame HSV, back projection of the hue, CamShift for at most 10 iterations or until
// the window moves less than a pixel.
class CamShiftPeer : public Peer {
 public:
  explicit CamShiftPeer(const FrameSize& size) : size_(size) {}

  void Init(const Nv21Frame& f, const cv::Rect& object) override {
    ToHsv(f);
    const cv::Mat roi = hsv_(object);
    cv::Mat mask;
    cv::inRange(roi, cv::Scalar(0, 60, 32), cv::Scalar(180, 255, 255), mask);
    cv::calcHist(&roi, 1, kHueChannel, mask, hist_, 1, kHueBins, ranges_);
    cv::normalize(hist_, hist_, 0, 255, cv::NORM_MINMAX);
    window_ = object;
  }

  cv::Rect Update(const Nv21Frame& f) override {
    ToHsv(f);
    cv::calcBackProject(&hsv_, 1, kHueChannel, hist_, backProjection_, ranges_);
    cv::CamShift(backProjection_, window_, cv::TermCriteria(cv::TermCriteria::EPS | cv::TermCriteria::COUNT, 10, 1));
    return window_;
  }

 private:
  static constexpr int kHueChannel[] = {0};
  static constexpr int kHueBins[] = {180};
  static constexpr float kHueRange[] = {0, 180};

  void ToHsv(const Nv21Frame& f) {
    ShrinkToBgr(f, size_, &nv21_, &bgr_);
    cv::cvtColor(bgr_, hsv_, cv::COLOR_BGR2HSV);
  }

  FrameSize size_;
  const float* ranges_[1] = {kHueRange};
  cv::Mat nv21_, bgr_, hsv_, hist_, backProjection_;
  cv::Rect window_;
};

// KCF and CSRT work on colour.
class BgrTrackerPeer : public Peer {
 public:
  BgrTrackerPeer(const FrameSize& size, cv::Ptr<cv::Tracker> tracker) : size_(size), tracker_(std::move(tracker)) {}

  void Init(const Nv21Frame& f, const cv::Rect& object) override {
    ShrinkToBgr(f, size_, &nv21_, &bgr_);
    tracker_->init(bgr_, object);
    box_ = object;
  }

  cv::Rect Update(const Nv21Frame& f) override {
    ShrinkToBgr(f, size_, &nv21_, &bgr_);
    tracker_->update(bgr_, box_);
    return box_;
  }

 private:
  FrameSize size_;
  cv::Ptr<cv::Tracker> tracker_;
  cv::Mat nv21_, bgr_;
  cv::Rect box_;
};

// MOSSE works on grey levels, so it takes the luma plane and skips the colour conversion.
class MossePeer : public Peer {
 public:
  explicit MossePeer(const FrameSize& size) : size_(size), tracker_(cv::legacy::TrackerMOSSE::create()) {}

  void Init(const Nv21Frame& f, const cv::Rect& object) override {
    ShrinkLuma(f, size_, &gray_);
    box_ = object;
    tracker_->init(gray_, box_);
  }

  cv::Rect Update(const Nv21Frame& f) override {
    ShrinkLuma(f, size_, &gray_);
    tracker_->update(gray_, box_);
    return box_;
  }

 private:
  FrameSize size_;
  cv::Ptr<cv::legacy::TrackerMOSSE> tracker_;
  cv::Mat gray_;
  cv::Rect2d box_;
};

using PeerFactory = std::unique_ptr<Peer> (*)(const FrameSize&);

std::unique_ptr<Peer> MakeCamShift(const FrameSize& s) { return std::make_unique<CamShiftPeer>(s); }
std::unique_ptr<Peer> MakeKcf(const FrameSize& s) {
  return std::make_unique<BgrTrackerPeer>(s, cv::TrackerKCF::create());
}
std::unique_ptr<Peer> MakeCsrt(const FrameSize& s) {
  return std::make_unique<BgrTrackerPeer>(s, cv::TrackerCSRT::create());
}
std::unique_ptr<Peer> MakeMosse(const FrameSize& s) { return std::make_unique<MossePeer>(s); }

// Whether a box's centre lies on the disc of frame i.
bool OnTarget(const FrameSet& frames, int i, const cv::Rect& box) {
  const cv::Rect disc = DiscBox(frames, i);
  const double dx = (box.x + box.width / 2.0) - (disc.x + disc.width / 2.0);
  const double dy = (box.y + box.height / 2.0) - (disc.y + disc.height / 2.0);
  return std::hypot(dx, dy) <= disc.width / 2.0;
}

// Initialised on the disc in the first frame, then updated on every frame of the lap. Frames
// whose answer is off the disc are counted, not failed: the peers are measured as they are.
void PeerTracking(benchmark::State& state, FrameSize size, PeerFactory make) {
  const FrameSet& frames = FramesFor(size);
  std::unique_ptr<Peer> peer = make(size);
  peer->Init(frames.Moving(0), DiscBox(frames, 0));
  int next = 1;
  int current = 0;
  long offTarget = 0;
  long answered = 0;
  TimeFrames(
      state, [&] { current = frames.Wrap(next++); return true; },
      [&] {
        const cv::Rect box = peer->Update(frames.Moving(current));
        offTarget += OnTarget(frames, current, box) ? 0 : 1;
        ++answered;
        return true;
      });
  state.counters["off_target_share"] = answered > 0 ? static_cast<double>(offTarget) / answered : 0.0;
}

void Register(const char* peer, const FrameSize& size, PeerFactory make) {
  const std::string name = std::string("peer/") + peer + "/" + size.label;
  benchmark::RegisterBenchmark(name.c_str(), PeerTracking, size, make)->UseManualTime();
}

}  // namespace

void RegisterPeerBenchmarks(const FrameSize& size) {
  cv::setNumThreads(1);
  Register("camshift", size, MakeCamShift);
  Register("kcf", size, MakeKcf);
  Register("csrt", size, MakeCsrt);
  Register("mosse", size, MakeMosse);
}

}  // namespace plovix_bench
