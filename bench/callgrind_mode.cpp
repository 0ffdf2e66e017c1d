#include "callgrind_mode.h"

#include <cstdio>

#include "support/engine_session.h"

extern "C" __attribute__((noinline)) int plovix_bench_tracked_frames(plovix_bench::EngineSession* s, int frames) {
  int tracked = 0;
  for (int i = 0; i < frames; ++i) {
    s->LoadMoving();
    tracked += s->Process() == PLOVIX_STATE_TRACKING ? 1 : 0;
  }
  return tracked;
}

namespace plovix_bench {

int RunCallgrindFrames(int frames) {
  const FrameSize& size = kFullHd;
  // The same lap as the timed case; hidden frames are not needed.
  const FrameSet set(size, CycleFramesFor(size), false);
  EngineSession s(&set);
  if (!s.StartTracking()) {
    std::fprintf(stderr, "plovix-bench: the engine did not start tracking the disc\n");
    return 1;
  }
  const int tracked = plovix_bench_tracked_frames(&s, frames);
  std::printf("tracked %d of %d frames at %s\n", tracked, frames, size.label);
  return tracked == frames ? 0 : 1;
}

}  // namespace plovix_bench
