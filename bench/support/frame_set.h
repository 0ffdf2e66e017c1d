// The frames a benchmark cycles through: enough distinct frames of one size that together they
// outgrow the last-level cache, with the disc circling (moving frames) and without it (hidden
// frames, the object gone).
#pragma once

#include <vector>

#include "support/scene.h"

namespace plovix_bench {

struct FrameSize {
  const char* label;
  int width;
  int height;
  int workWidth;  // the engine's working image for this size
  int workHeight;
};

constexpr FrameSize kFullHd = {"1080p", 1920, 1080, 480, 270};
constexpr FrameSize kHd = {"720p", 1280, 720, 320, 180};
constexpr FrameSize kVga = {"640x480", 640, 480, 640, 480};

class FrameSet {
 public:
  // count frames of each kind; the disc does one lap over the moving frames.
  FrameSet(const FrameSize& size, int count, bool withHidden);

  const FrameSize& size() const { return size_; }
  const Scene& scene() const { return scene_; }
  int count() const { return static_cast<int>(moving_.size()); }
  bool hasHidden() const { return !hidden_.empty(); }

  // Frame i modulo count.
  const Nv21Frame& Moving(int i) const { return moving_[static_cast<size_t>(Wrap(i))]; }
  const Nv21Frame& Hidden(int i) const { return hidden_[static_cast<size_t>(Wrap(i))]; }
  int Wrap(int i) const { return ((i % count()) + count()) % count(); }

 private:
  FrameSize size_;
  Scene scene_;
  std::vector<Nv21Frame> moving_;
  std::vector<Nv21Frame> hidden_;
};

// Frames of the given size, moving and hidden, as many as outgrow this machine's last-level cache.
// Rendered on first use and kept until another size is asked for.
const FrameSet& FramesFor(const FrameSize& size);

// Number of frames FramesFor renders of each kind for this size on this machine.
int CycleFramesFor(const FrameSize& size);

}  // namespace plovix_bench
