#include "frame_times.h"

#include <gtest/gtest.h>

namespace {

TEST(FrameTimes, MedianIsTheLowerMiddleBucketAndMaxIsExact) {
  soak::FrameTimes t;
  const double ms[] = {0.2004, 7.5, 0.1, 0.3999, 0.25};
  for (int i = 0; i < 5; ++i) t.Add(ms[i], ms[i] / 2, 100 + i);
  EXPECT_EQ(t.count(), 5);
  EXPECT_DOUBLE_EQ(t.MedianMs(), 0.25);
  EXPECT_DOUBLE_EQ(t.MaxMs(), 7.5);
  EXPECT_EQ(t.MaxFrame(), 101);
  EXPECT_DOUBLE_EQ(t.MaxCpuMs(), 3.75);
  EXPECT_NEAR(t.TotalMs(), 8.4503, 1e-9);
  t.Add(0.05, 4.0, 200);
  EXPECT_DOUBLE_EQ(t.MedianMs(), 0.2);  // rank 3 of 6, in the bucket of 0.2004
  EXPECT_DOUBLE_EQ(t.MaxCpuMs(), 4.0);   // the CPU maximum need not be the wall maximum's frame
}

TEST(FrameTimes, CallsBeyondTheHistogramStillCountForTheMedianAndTheMax) {
  soak::FrameTimes t;
  t.Add(120.0, 0, 1);
  t.Add(80.0, 0, 2);
  t.Add(0.5, 0, 3);
  EXPECT_DOUBLE_EQ(t.MedianMs(), 49.999);
  EXPECT_DOUBLE_EQ(t.MaxMs(), 120.0);
  EXPECT_EQ(t.MaxFrame(), 1);
  EXPECT_EQ(t.CountAbove(20.0), 2);
  EXPECT_EQ(t.CountAbove(0.499), 3);
  EXPECT_EQ(t.CountAbove(0.5), 2);  // the call of exactly 0.5 ms is not above it
}

}  // namespace
