// The soak run: drives one engine through the C entry points for many frames of the scripted
// cycle and gathers what the verdict needs: the states reported per phase, the memory figures at
// every phase end, and the time of every process_plovix call.
#pragma once

#include <cstdint>

#include "frame_times.h"
#include "schedule.h"

namespace soak {

// A phase that did not end as scripted.
struct PhaseFailure {
  int64_t frame;
  Phase phase;
  int expected;  // the state expected (at the end, or some time during the phase)
  int got;       // the state at the end, or 0 when the expected state never came
};

constexpr int kMaxRecordedFailures = 16;

// The C allocator serves the first 640x480 working buffer from a mapping of its own and, once that
// is freed, raises its mapping threshold and serves the later ones from the heap, which grows once
// more in the second cycle. From the third cycle on, every cycle reuses the memory it had.
constexpr int kWarmupCycles = 2;

struct Result {
  int64_t frames = 0;
  int64_t phasesDone = 0;
  int64_t cyclesDone = 0;
  int64_t refused = 0;            // process_plovix returned -1
  int64_t states[4] = {0, 0, 0, 0};  // frames per reported state 1 to 3
  int64_t infoMessages = 0;
  int64_t errorMessages = 0;
  FrameTimes times;

  // Resident size at phase ends: the warm-up figure is the largest during the warm-up cycles.
  int64_t rssWarmupKb = -1;
  int64_t rssMaxKb = -1;  // largest after warm-up, including the end
  int64_t rssMaxFrame = -1;
  int64_t rssEndKb = -1;
  int64_t memorySamples = 0;
  // Heap in use at cycle ends, where the engine holds the same buffers every time.
  int64_t heapWarmupBytes = -1;
  int64_t heapMaxBytes = -1;
  int64_t heapMaxFrame = -1;

  int64_t phaseFailures = 0;
  PhaseFailure recorded[kMaxRecordedFailures] = {};
};

// The warm-up cycles and one more, so that memory is compared after warm-up.
int64_t MinFrames();

void Run(int64_t frames, Result* result);

}  // namespace soak
