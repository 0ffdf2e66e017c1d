// The engine's heap over one whole session, from create to destroy: touch, tracking, loss, the
// whole-frame and block searches, the end of tracking.
#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

#include "registry.h"
#include "support/alloc_hook.h"
#include "support/engine_session.h"

namespace plovix_bench {
namespace {

constexpr int kTrackedFrames = 60;

// Runs the session; false when the engine did not go through the situations in order.
bool RunSession(const FrameSet& frames) {
  EngineSession s(&frames);
  bool ok = s.StartTracking() && s.TrackFrames(kTrackedFrames) && s.LoseObject() &&
            s.SearchWholeFrame(kWholeFrameSearches);
  s.LoadHidden();
  return s.Process() == PLOVIX_STATE_NOT_TRACKING && ok;
}

void SessionHeap(benchmark::State& state, FrameSize size) {
  using Clock = std::chrono::steady_clock;
  const FrameSet& frames = FramesFor(size);
  bool ok = true;
  HeapCounts heap;
  for (auto _ : state) {
    ResetHeapCounts();
    const Clock::time_point t0 = Clock::now();
    StartHeapCounting();
    ok = RunSession(frames) && ok;
    StopHeapCounting();
    state.SetIterationTime(std::chrono::duration<double>(Clock::now() - t0).count());
    heap = ReadHeapCounts();
  }
  state.counters["peak_heap_bytes"] = static_cast<double>(heap.peakBytes);
  state.counters["heap_calls"] = static_cast<double>(heap.calls);
  state.counters["live_after_destroy_bytes"] = static_cast<double>(heap.liveBytes);
  if (!ok) state.SkipWithError("the session did not go through touch, tracking, loss and the end of tracking");
}

}  // namespace

void RegisterSessionHeapBenchmark(const FrameSize& size) {
  benchmark::RegisterBenchmark((std::string("heap/session/") + size.label).c_str(), SessionHeap, size)
      ->UseManualTime()
      ->Iterations(1)
      ->Repetitions(1);
}

}  // namespace plovix_bench
