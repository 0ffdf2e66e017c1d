// The loop every per-frame benchmark runs: untimed preparation, then one frame timed on its own,
// with heap counting on for exactly that frame. The time is the calling thread's CPU time (given
// to the framework as manual time), so other processes on a shared machine do not inflate it;
// the wall time is kept beside it. Reports per-frame percentiles and heap calls per frame.
#pragma once

#include <benchmark/benchmark.h>

#include <time.h>

#include <chrono>
#include <string>

#include "support/alloc_hook.h"
#include "support/frame_samples.h"

namespace plovix_bench {

inline double ThreadCpuSeconds() {
  timespec ts;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
  return static_cast<double>(ts.tv_sec) + static_cast<double>(ts.tv_nsec) * 1e-9;
}

// Sets the counters p50_us, p90_us (CPU), wall_p50_us, allocs_per_frame and frames.
inline void ReportFrames(benchmark::State& state, const FrameSamples& cpu, const FrameSamples& wall,
                         const HeapCounts& heap) {
  constexpr double kMicro = 1e6;
  const double frames = static_cast<double>(cpu.size());
  state.counters["p50_us"] = cpu.Percentile(50) * kMicro;
  state.counters["p90_us"] = cpu.Percentile(90) * kMicro;
  state.counters["wall_p50_us"] = wall.Percentile(50) * kMicro;
  state.counters["allocs_per_frame"] = frames > 0 ? static_cast<double>(heap.calls) / frames : 0.0;
  state.counters["frames"] = frames;
}

// prepare() brings the next frame to the point of timing and returns false if it could not;
// frame() is the timed work and returns false if its result was not the one the case implies.
// A case with any false is reported as an error instead of a time.
template <typename Prepare, typename Frame>
void TimeFrames(benchmark::State& state, Prepare prepare, Frame frame) {
  using Clock = std::chrono::steady_clock;
  FrameSamples cpu(static_cast<size_t>(state.max_iterations));
  FrameSamples wall(static_cast<size_t>(state.max_iterations));
  long failedPreparations = 0;
  long unexpectedResults = 0;
  ResetHeapCounts();
  for (auto _ : state) {
    if (!prepare()) ++failedPreparations;
    const Clock::time_point wall0 = Clock::now();
    const double cpu0 = ThreadCpuSeconds();
    StartHeapCounting();
    const bool ok = frame();
    StopHeapCounting();
    const double cpu1 = ThreadCpuSeconds();
    const Clock::time_point wall1 = Clock::now();
    state.SetIterationTime(cpu1 - cpu0);
    cpu.Add(cpu1 - cpu0);
    wall.Add(std::chrono::duration<double>(wall1 - wall0).count());
    if (!ok) ++unexpectedResults;
  }
  ReportFrames(state, cpu, wall, ReadHeapCounts());
  if (failedPreparations > 0 || unexpectedResults > 0) {
    const std::string why = std::to_string(failedPreparations) + " preparations failed, " +
                            std::to_string(unexpectedResults) + " frames had an unexpected result";
    state.SkipWithError(why.c_str());
  }
}

}  // namespace plovix_bench
