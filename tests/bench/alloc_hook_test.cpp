#include "support/alloc_hook.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>

#include "support/engine_session.h"

namespace plovix_bench {
namespace {

// Stores every block here so the compiler cannot drop an allocation it sees freed unused.
void* volatile g_sink;

class HeapCountingTest : public ::testing::Test {
 protected:
  void SetUp() override { ResetHeapCounts(); }
  void TearDown() override { StopHeapCounting(); }
};

TEST_F(HeapCountingTest, CountsOnlyWhileOn) {
  g_sink = std::malloc(1000);
  std::free(g_sink);
  EXPECT_EQ(ReadHeapCounts().calls, 0u);

  StartHeapCounting();
  void* p = std::malloc(1000);
  g_sink = p;
  const HeapCounts during = ReadHeapCounts();
  std::free(p);
  StopHeapCounting();
  const HeapCounts after = ReadHeapCounts();

  EXPECT_EQ(during.calls, 1u);
  EXPECT_GE(during.liveBytes, 1000);
  EXPECT_EQ(after.liveBytes, 0);
  EXPECT_EQ(after.peakBytes, during.liveBytes);
}

TEST_F(HeapCountingTest, EveryAllocatorCountsOnceAndBalances) {
  StartHeapCounting();
  void* a = std::calloc(10, 100);
  void* b = std::malloc(64);
  b = std::realloc(b, 4096);  // the old block is released, the new one counted
  void* c = nullptr;
  ASSERT_EQ(posix_memalign(&c, 64, 256), 0);
  void* d = aligned_alloc(128, 512);
  int* e = new int[100];
  g_sink = e;
  const HeapCounts during = ReadHeapCounts();
  const int64_t expectedLive = static_cast<int64_t>(malloc_usable_size(a) + malloc_usable_size(b) +
                                                    malloc_usable_size(c) + malloc_usable_size(d) +
                                                    malloc_usable_size(e));
  std::free(a);
  std::free(b);
  std::free(c);
  std::free(d);
  delete[] e;
  StopHeapCounting();

  EXPECT_EQ(during.calls, 6u);
  EXPECT_EQ(during.liveBytes, expectedLive);
  EXPECT_EQ(ReadHeapCounts().liveBytes, 0);
}

// The hook must reach into the engine library: a tracked frame takes its weight image from the
// heap, while a frame without tracking, once the working buffer exists, takes nothing.
TEST_F(HeapCountingTest, SeesTheEnginesOwnAllocations) {
  const FrameSet frames(kHd, 8, false);
  EngineSession s(&frames);
  s.LoadMoving();
  ASSERT_EQ(s.Process(), PLOVIX_STATE_NOT_TRACKING);

  s.LoadMoving();
  StartHeapCounting();
  s.Process();
  StopHeapCounting();
  EXPECT_EQ(ReadHeapCounts().calls, 0u);

  ASSERT_TRUE(s.StartTracking());
  ResetHeapCounts();
  s.LoadMoving();
  StartHeapCounting();
  const int state = s.Process();
  StopHeapCounting();
  EXPECT_EQ(state, PLOVIX_STATE_TRACKING);
  EXPECT_GE(ReadHeapCounts().calls, 1u);
  EXPECT_EQ(ReadHeapCounts().liveBytes, 0);
}

}  // namespace
}  // namespace plovix_bench
