// What the soak must show, and the printed summary.
#pragma once

#include <cstdint>
#include <cstdio>

#include "soak.h"

namespace soak {

struct Limits {
  // Off under sanitizers, whose allocators and slowdown distort both figures.
  bool resources = true;
  double maxFrameMs = 20.0;
  // Resident size may pass the warm-up figure by this much. The engine's buffers are freed and made
  // again at the same sizes every cycle, but the C allocator may place a block a page further and
  // the kernel counts the pages of the soak's own code and data as they are first touched: a few
  // pages of noise. A leak grows without bound and crosses it.
  int64_t rssToleranceKb = 16;
  // Heap in use at cycle ends may pass its warm-up figure by this much: the allocator hands out a
  // free block whole when the rest would be below its 32-byte minimum, so the same few live blocks
  // can count up to 31 bytes more each. A leak of one small block per cycle crosses it within
  // eight cycles.
  int64_t heapToleranceBytes = 256;
};

// Prints one line per broken expectation to out and returns their number.
int Verdict(const Result& r, const Limits& limits, FILE* out);

void PrintSummary(const Result& r, const Limits& limits, double seconds, FILE* out);

}  // namespace soak
