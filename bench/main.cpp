// plovix-bench: the engine's per-frame cost in each situation, the floor under it and, where
// OpenCV is built in, its peers. Own options (before Google Benchmark's):
//   --quick                 fewer fixed iterations (smoke runs)
//   --callgrind-frames=N    no benchmarks: track N frames at 1080p for callgrind
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "callgrind_mode.h"
#include "registry.h"
#include "support/engine_session.h"

namespace {

constexpr const char kQuick[] = "--quick";
constexpr const char kCallgrindFrames[] = "--callgrind-frames=";

void RegisterAll(const plovix_bench::BenchOptions& options) {
  using namespace plovix_bench;
  // 1080p first and together: its frames are rendered once for the floor, the peers and the engine.
  RegisterFloorBenchmarks(kFullHd);
#ifdef PLOVIX_BENCH_PEERS
  RegisterPeerBenchmarks(kFullHd);
#endif
  RegisterDecimationBenchmark(kFullHd);
  RegisterProcessBenchmarks(kFullHd, options);
  RegisterSessionHeapBenchmark(kFullHd);
  for (const FrameSize& size : {kHd, kVga}) {
    RegisterDecimationBenchmark(size);
    RegisterProcessBenchmarks(size, options);
  }
}

}  // namespace

int main(int argc, char** argv) {
  plovix_bench::SilenceEngineLog();
  plovix_bench::BenchOptions options;
  std::vector<char*> rest;
  for (int i = 0; i < argc; ++i) {
    if (std::strcmp(argv[i], kQuick) == 0) {
      options.quick = true;
    } else if (std::strncmp(argv[i], kCallgrindFrames, sizeof(kCallgrindFrames) - 1) == 0) {
      const int frames = std::atoi(argv[i] + sizeof(kCallgrindFrames) - 1);
      if (frames < 1) {
        std::fprintf(stderr, "plovix-bench: %s needs a positive frame count\n", kCallgrindFrames);
        return 2;
      }
      return plovix_bench::RunCallgrindFrames(frames);
    } else {
      rest.push_back(argv[i]);
    }
  }
  int restCount = static_cast<int>(rest.size());
  benchmark::Initialize(&restCount, rest.data());
  if (benchmark::ReportUnrecognizedArguments(restCount, rest.data())) return 2;
  RegisterAll(options);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
