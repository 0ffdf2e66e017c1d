// Every group of benchmarks registers itself through one of these, called from main in the
// order of the table: all cases of one frame size together, so its frames are rendered once.
#pragma once

#include "support/frame_set.h"

namespace plovix_bench {

struct BenchOptions {
  bool quick = false;  // fewer fixed iterations, for a smoke run
};

void RegisterProcessBenchmarks(const FrameSize& size, const BenchOptions& options);
void RegisterDecimationBenchmark(const FrameSize& size);
void RegisterFloorBenchmarks(const FrameSize& size);
void RegisterSessionHeapBenchmark(const FrameSize& size);
#ifdef PLOVIX_BENCH_PEERS
void RegisterPeerBenchmarks(const FrameSize& size);
#endif

}  // namespace plovix_bench
