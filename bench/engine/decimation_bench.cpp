// The engine's decimation alone: a frame into a working buffer.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "engine/working_image.h"
#include "registry.h"
#include "timed_loop.h"

namespace plovix_bench {
namespace {

void Decimation(benchmark::State& state, FrameSize size) {
  const FrameSet& frames = FramesFor(size);
  std::vector<uint8_t> work(static_cast<size_t>(size.workWidth) * size.workHeight * 3 / 2);
  const Nv21Frame* f = nullptr;
  int next = 0;
  TimeFrames(
      state, [&] { f = &frames.Moving(next++); return true; },
      [&] {
        resizeNV21_UV(f->y(), f->vu(), size.width, size.height, work.data(), size.workWidth, size.workHeight);
        benchmark::ClobberMemory();
        return true;
      });
}

}  // namespace

void RegisterDecimationBenchmark(const FrameSize& size) {
  benchmark::RegisterBenchmark((std::string("decimation/") + size.label).c_str(), Decimation, size)
      ->UseManualTime();
}

}  // namespace plovix_bench
