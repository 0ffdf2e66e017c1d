#include "support/frame_samples.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <tuple>

namespace plovix_bench {
namespace {

FrameSamples Of(std::initializer_list<double> values) {
  FrameSamples s(values.size());
  for (double v : values) s.Add(v);
  return s;
}

TEST(FrameSamples, NearestRankPercentiles) {
  const FrameSamples five = Of({5, 1, 4, 2, 3});
  const FrameSamples ten = Of({10, 9, 8, 7, 6, 5, 4, 3, 2, 1});
  const std::tuple<const FrameSamples*, double, double> cases[] = {
      {&five, 50, 3}, {&five, 90, 5}, {&five, 20, 1}, {&five, 21, 2}, {&five, 100, 5},
      {&ten, 50, 5},  {&ten, 90, 9},  {&ten, 91, 10}, {&ten, 1, 1},
  };
  for (const auto& [samples, p, expected] : cases) {
    EXPECT_EQ(samples->Percentile(p), expected) << samples->size() << " samples, p" << p;
  }
}

TEST(FrameSamples, EmptyAndSingle) {
  EXPECT_EQ(Of({}).Percentile(50), 0.0);
  EXPECT_EQ(Of({7}).Percentile(50), 7.0);
  EXPECT_EQ(Of({7}).Percentile(90), 7.0);
}

}  // namespace
}  // namespace plovix_bench
