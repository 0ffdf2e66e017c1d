#include "support/frame_set.h"

#include <memory>

#include "support/cache_size.h"

namespace plovix_bench {

FrameSet::FrameSet(const FrameSize& size, int count, bool withHidden)
    : size_(size), scene_(size.width, size.height, count), moving_(static_cast<size_t>(count)) {
  for (int i = 0; i < count; ++i) scene_.Render(i, true, &moving_[static_cast<size_t>(i)]);
  if (!withHidden) return;
  hidden_.resize(static_cast<size_t>(count));
  // Noise seeds after the moving frames', so no hidden frame repeats a moving frame's noise.
  for (int i = 0; i < count; ++i) scene_.Render(count + i, false, &hidden_[static_cast<size_t>(i)]);
}

int CycleFramesFor(const FrameSize& size) {
  const size_t bytes = static_cast<size_t>(size.width) * size.height * 3 / 2;
  return FramesToOutgrowCache(bytes, LastLevelCacheBytes());
}

const FrameSet& FramesFor(const FrameSize& size) {
  static std::unique_ptr<FrameSet> current;
  if (!current || current->size().width != size.width || current->size().height != size.height) {
    current.reset();
    current = std::make_unique<FrameSet>(size, CycleFramesFor(size), true);
  }
  return *current;
}

}  // namespace plovix_bench
