#include "verdict.h"

namespace soak {

namespace {

int PhaseVerdict(const Result& r, FILE* out) {
  const int64_t shown = r.phaseFailures < kMaxRecordedFailures ? r.phaseFailures : kMaxRecordedFailures;
  for (int64_t i = 0; i < shown; ++i) {
    const PhaseFailure& f = r.recorded[i];
    if (f.got == 0) {
      std::fprintf(out, "FAIL: phase %s ending at frame %lld never reported state %d\n", InfoOf(f.phase).name,
                   static_cast<long long>(f.frame), f.expected);
    } else {
      std::fprintf(out, "FAIL: phase %s ended at frame %lld in state %d, expected %d\n", InfoOf(f.phase).name,
                   static_cast<long long>(f.frame), f.got, f.expected);
    }
  }
  if (r.phaseFailures > shown) {
    std::fprintf(out, "FAIL: %lld more phases did not end as scripted\n", static_cast<long long>(r.phaseFailures - shown));
  }
  return static_cast<int>(shown) + (r.phaseFailures > shown ? 1 : 0);
}

int MemoryVerdict(const Result& r, const Limits& limits, FILE* out) {
  int failures = 0;
  if (r.rssWarmupKb < 0 || r.rssMaxKb < 0) {
    std::fprintf(out, "FAIL: the resident size could not be read after warm-up\n");
    return 1;
  }
  if (r.rssMaxKb > r.rssWarmupKb + limits.rssToleranceKb) {
    std::fprintf(out, "FAIL: resident size %lld KB at frame %lld, above the warm-up figure %lld KB + %lld KB\n",
                 static_cast<long long>(r.rssMaxKb), static_cast<long long>(r.rssMaxFrame),
                 static_cast<long long>(r.rssWarmupKb), static_cast<long long>(limits.rssToleranceKb));
    ++failures;
  }
  // -1 on both sides where the C library cannot tell.
  if (r.heapMaxBytes > r.heapWarmupBytes + limits.heapToleranceBytes) {
    std::fprintf(out, "FAIL: heap in use %lld bytes at the cycle end at frame %lld, %lld during warm-up + %lld\n",
                 static_cast<long long>(r.heapMaxBytes), static_cast<long long>(r.heapMaxFrame),
                 static_cast<long long>(r.heapWarmupBytes), static_cast<long long>(limits.heapToleranceBytes));
    ++failures;
  }
  return failures;
}

}  // namespace

int Verdict(const Result& r, const Limits& limits, FILE* out) {
  int failures = PhaseVerdict(r, out);
  if (r.refused > 0) {
    std::fprintf(out, "FAIL: %lld frames refused\n", static_cast<long long>(r.refused));
    ++failures;
  }
  if (!limits.resources) return failures;
  failures += MemoryVerdict(r, limits, out);
  if (r.times.MaxMs() > limits.maxFrameMs) {
    std::fprintf(out, "FAIL: process_plovix took %.2f ms on frame %lld, limit %.0f ms; calls above it: %lld\n",
                 r.times.MaxMs(), static_cast<long long>(r.times.MaxFrame()), limits.maxFrameMs,
                 static_cast<long long>(r.times.CountAbove(limits.maxFrameMs)));
    ++failures;
  }
  return failures;
}

void PrintSummary(const Result& r, const Limits& limits, double seconds, FILE* out) {
  std::fprintf(out, "frames        %lld in %.1f s (%.1f s in process_plovix): %lld cycles, %lld phases\n",
               static_cast<long long>(r.frames), seconds, r.times.TotalMs() / 1000.0,
               static_cast<long long>(r.cyclesDone), static_cast<long long>(r.phasesDone));
  std::fprintf(out, "states        1: %lld, 2: %lld, 3: %lld, refused: %lld\n", static_cast<long long>(r.states[1]),
               static_cast<long long>(r.states[2]), static_cast<long long>(r.states[3]),
               static_cast<long long>(r.refused));
  std::fprintf(out, "messages      info %lld, error %lld\n", static_cast<long long>(r.infoMessages),
               static_cast<long long>(r.errorMessages));
  std::fprintf(out, "VmRSS         warm-up %lld KB, max %lld KB, end %lld KB (%lld samples, tolerance %lld KB)\n",
               static_cast<long long>(r.rssWarmupKb), static_cast<long long>(r.rssMaxKb),
               static_cast<long long>(r.rssEndKb), static_cast<long long>(r.memorySamples),
               static_cast<long long>(limits.rssToleranceKb));
  std::fprintf(out, "heap in use   warm-up %lld B, max %lld B at cycle ends (tolerance %lld B)\n",
               static_cast<long long>(r.heapWarmupBytes), static_cast<long long>(r.heapMaxBytes),
               static_cast<long long>(limits.heapToleranceBytes));
  std::fprintf(out, "frame time    max %.3f ms (frame %lld, phase %s), median %.3f ms, limit %.0f ms%s\n",
               r.times.MaxMs(), static_cast<long long>(r.times.MaxFrame()),
               r.times.MaxFrame() >= 0 ? InfoOf(StepAt(r.times.MaxFrame()).phase).name : "-", r.times.MedianMs(),
               limits.maxFrameMs, limits.resources ? "" : " (not checked)");
  std::fprintf(out, "CPU time      max %.3f ms of one call (the rest of a longer wall time is preemption)\n",
               r.times.MaxCpuMs());
}

}  // namespace soak
