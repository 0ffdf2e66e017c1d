// Heap accounting for the benchmarks. The executable defines malloc, calloc, realloc, free, the
// aligned allocators and operator new/delete itself; the engine library and OpenCV bind to those
// definitions ahead of the C library's, so every heap call in the process passes through here.
// Calls and live bytes (as malloc_usable_size reports them) are counted only while counting is
// on, so the benchmark framework's own allocations stay out.
#pragma once

#include <cstdint>

namespace plovix_bench {

struct HeapCounts {
  uint64_t calls = 0;     // allocations (realloc counts as one)
  int64_t liveBytes = 0;  // allocated minus freed while counting
  int64_t peakBytes = 0;  // the highest liveBytes reached
};

void StartHeapCounting();
void StopHeapCounting();
// Zeroes the counts (counting on or off stays as it is).
void ResetHeapCounts();
HeapCounts ReadHeapCounts();

}  // namespace plovix_bench
