#include "verdict.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using soak::Limits;
using soak::Result;

struct Outcome {
  int failures;
  std::string text;
};

Outcome Judge(const Result& r, const Limits& limits) {
  char* buf = nullptr;
  size_t len = 0;
  FILE* out = open_memstream(&buf, &len);
  const int failures = soak::Verdict(r, limits, out);
  std::fclose(out);
  Outcome o{failures, std::string(buf, len)};
  std::free(buf);
  return o;
}

// A run that meets every expectation: 16 KB of resident growth and 256 bytes of heap growth are the
// tolerances, 20 ms the limit.
Result Passing() {
  Result r;
  r.rssWarmupKb = 8000;
  r.rssMaxKb = 8016;
  r.heapWarmupBytes = r.heapMaxBytes = 4000000;
  r.times.Add(20.0, 1.0, 7);
  return r;
}

TEST(Verdict, EachBrokenLimitIsOneFailureWithItsFigures) {
  struct Case {
    const char* name;
    void (*spoil)(Result*);
    const char* expected;  // "" for a pass
  } cases[] = {
      {"all met", [](Result*) {}, ""},
      {"one KB over", [](Result* r) { r->rssMaxKb = 8017; r->rssMaxFrame = 9000; },
       "FAIL: resident size 8017 KB at frame 9000, above the warm-up figure 8000 KB + 16 KB\n"},
      {"heap within allocator slack", [](Result* r) { r->heapMaxBytes = 4000256; }, ""},
      {"heap grew", [](Result* r) { r->heapMaxBytes = 4000257; r->heapMaxFrame = 2799; },
       "FAIL: heap in use 4000257 bytes at the cycle end at frame 2799, 4000000 during warm-up + 256\n"},
      {"heap unknown", [](Result* r) { r->heapWarmupBytes = r->heapMaxBytes = -1; }, ""},
      {"resident size unreadable", [](Result* r) { r->rssMaxKb = -1; },
       "FAIL: the resident size could not be read after warm-up\n"},
      {"slow call", [](Result* r) { r->times.Add(20.5, 1.0, 1234); },
       "FAIL: process_plovix took 20.50 ms on frame 1234, limit 20 ms; calls above it: 1\n"},
      {"refused frames", [](Result* r) { r->refused = 3; }, "FAIL: 3 frames refused\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Result r = Passing();
    c.spoil(&r);
    const Outcome o = Judge(r, Limits{});
    EXPECT_EQ(o.text, c.expected);
    EXPECT_EQ(o.failures, c.expected[0] == '\0' ? 0 : 1);
  }
}

TEST(Verdict, WithoutResourceChecksOnlyStatesAndRefusalsCount) {
  Result r = Passing();
  r.rssMaxKb = 90000;
  r.times.Add(500.0, 1.0, 3);
  Limits off;
  off.resources = false;
  EXPECT_EQ(Judge(r, off).failures, 0);
  r.refused = 1;
  EXPECT_EQ(Judge(r, off).failures, 1);
}

TEST(Verdict, PhaseFailuresAreListedUpToTheRecordedOnesThenSummed) {
  Result r = Passing();
  r.phaseFailures = soak::kMaxRecordedFailures + 4;
  for (int i = 0; i < soak::kMaxRecordedFailures; ++i) r.recorded[i] = {699 + 700 * i, soak::Phase::kReinit, 1, 2};
  r.recorded[1] = {1909, soak::Phase::kBlink, 3, 0};
  const Outcome o = Judge(r, Limits{});
  EXPECT_EQ(o.failures, soak::kMaxRecordedFailures + 1);
  const std::string firstTwo =
      "FAIL: phase reinit ended at frame 699 in state 2, expected 1\n"
      "FAIL: phase blink ending at frame 1909 never reported state 3\n";
  EXPECT_EQ(o.text.substr(0, firstTwo.size()), firstTwo);
  EXPECT_NE(o.text.find("FAIL: 4 more phases did not end as scripted\n"), std::string::npos);
}

}  // namespace
