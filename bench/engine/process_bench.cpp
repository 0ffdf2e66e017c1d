// process_plovix per frame, in each situation a camera session goes through.
#include <benchmark/benchmark.h>

#include <string>

#include "registry.h"
#include "support/engine_session.h"
#include "timed_loop.h"

namespace plovix_bench {
namespace {

// Each block-search frame costs a whole session before it (touch, warm-up, loss, a hundred
// whole-frame searches), so that case runs a fixed number of frames.
constexpr int kBlockSearchFrames = 20;
constexpr int kBlockSearchFramesQuick = 4;

void NotTracking(benchmark::State& state, FrameSize size) {
  EngineSession s(&FramesFor(size));
  TimeFrames(
      state, [&] { s.LoadMoving(); return true; },
      [&] { return s.Process() == PLOVIX_STATE_NOT_TRACKING; });
}

void Tracking(benchmark::State& state, FrameSize size) {
  EngineSession s(&FramesFor(size));
  const bool tracking = s.StartTracking();
  TimeFrames(
      state, [&] { s.LoadMoving(); return tracking; },
      [&] { return s.Process() == PLOVIX_STATE_TRACKING; });
}

// The lost-state frames before the block search: each searches the whole frame.
void LostWholeFrame(benchmark::State& state, FrameSize size) {
  EngineSession s(&FramesFor(size));
  int searchesLeft = 0;
  bool ready = true;
  TimeFrames(
      state,
      [&] {
        if (searchesLeft == 0) {
          ready = s.StartTracking() && s.LoseObject();
          searchesLeft = kWholeFrameSearches;
        }
        --searchesLeft;
        s.LoadHidden();
        return ready;
      },
      [&] { return s.Process() == PLOVIX_STATE_TEMP_LOST; });
}

// The frame after the whole-frame searches: a block search, after which the engine gives up.
void LostBlockSearch(benchmark::State& state, FrameSize size) {
  EngineSession s(&FramesFor(size));
  TimeFrames(
      state,
      [&] {
        const bool ready = s.StartTracking() && s.LoseObject() && s.SearchWholeFrame(kWholeFrameSearches);
        s.LoadHidden();
        return ready;
      },
      [&] { return s.Process() == PLOVIX_STATE_NOT_TRACKING; });
}

// A frame carrying a touch on the disc: segmentation, selection and the first tracking step.
void Touch(benchmark::State& state, FrameSize size) {
  EngineSession s(&FramesFor(size));
  TimeFrames(
      state, [&] { s.LoadMoving(true); return true; },
      [&] { return s.Process() == PLOVIX_STATE_TRACKING; });
}

std::string Name(const char* situation, const FrameSize& size) {
  return std::string("process_plovix/") + situation + "/" + size.label;
}

}  // namespace

void RegisterProcessBenchmarks(const FrameSize& size, const BenchOptions& options) {
  benchmark::RegisterBenchmark(Name("not_tracking", size).c_str(), NotTracking, size)->UseManualTime();
  benchmark::RegisterBenchmark(Name("tracking", size).c_str(), Tracking, size)->UseManualTime();
  benchmark::RegisterBenchmark(Name("touch", size).c_str(), Touch, size)->UseManualTime();
  benchmark::RegisterBenchmark(Name("lost_whole_frame", size).c_str(), LostWholeFrame, size)->UseManualTime();
  benchmark::RegisterBenchmark(Name("lost_block", size).c_str(), LostBlockSearch, size)
      ->UseManualTime()
      ->Iterations(options.quick ? kBlockSearchFramesQuick : kBlockSearchFrames);
}

}  // namespace plovix_bench
