// What reading a frame costs at the least: point-sampling the working image out of it, and
// copying it whole.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

#include "floor/point_sample.h"
#include "registry.h"
#include "timed_loop.h"

namespace plovix_bench {
namespace {

void PointSample(benchmark::State& state, FrameSize size) {
  const FrameSet& frames = FramesFor(size);
  std::vector<uint8_t> work(static_cast<size_t>(size.workWidth) * size.workHeight * 3 / 2);
  const int step = size.width / size.workWidth;
  const Nv21Frame* f = nullptr;
  int next = 0;
  TimeFrames(
      state, [&] { f = &frames.Moving(next++); return true; },
      [&] {
        PointSampleNv21(f->y(), f->vu(), size.width, step, work.data(), size.workWidth, size.workHeight);
        benchmark::ClobberMemory();
        return true;
      });
}

void Copy(benchmark::State& state, FrameSize size) {
  const FrameSet& frames = FramesFor(size);
  std::vector<uint8_t> copy(frames.Moving(0).data.size());
  const Nv21Frame* f = nullptr;
  int next = 0;
  TimeFrames(
      state, [&] { f = &frames.Moving(next++); return true; },
      [&] {
        std::memcpy(copy.data(), f->data.data(), copy.size());
        benchmark::ClobberMemory();
        return true;
      });
}

}  // namespace

void RegisterFloorBenchmarks(const FrameSize& size) {
  benchmark::RegisterBenchmark((std::string("floor/point_sample/") + size.label).c_str(), PointSample, size)
      ->UseManualTime();
  benchmark::RegisterBenchmark((std::string("floor/memcpy/") + size.label).c_str(), Copy, size)->UseManualTime();
}

}  // namespace plovix_bench
