#include "memory_use.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

namespace {

TEST(MemoryUse, ReadsTheNamedFieldOfAStatusText) {
  const char* status =
      "Name:\tplovix-soak\n"
      "VmRSSX:\t1 kB\n"
      "VmHWM:\t   9000 kB\n"
      "VmRSS:\t   8212 kB\n"
      "RssAnon:\t    4100 kB\n";
  EXPECT_EQ(soak::StatusFieldKb(status, "VmRSS"), 8212);
  EXPECT_EQ(soak::StatusFieldKb(status, "RssAnon"), 4100);
  EXPECT_EQ(soak::StatusFieldKb(status, "VmSwap"), -1);
  EXPECT_EQ(soak::StatusFieldKb(status, "Rss"), -1);
  EXPECT_EQ(soak::StatusFieldKb("", "VmRSS"), -1);
}

// Sanitizers replace the allocator and leave the C library's figures behind.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST(MemoryUse, FiguresFollowAnAllocationThatIsWritten) {
  constexpr size_t kBytes = 8 << 20;
  const int64_t rss0 = soak::ResidentKb();
  const int64_t heap0 = soak::HeapInUseBytes();
  ASSERT_GT(rss0, 0);
  char* block = static_cast<char*>(std::malloc(kBytes));
  ASSERT_NE(block, nullptr);
  std::memset(block, 1, kBytes);
  EXPECT_GE(soak::ResidentKb() - rss0, static_cast<int64_t>(kBytes / 1024) * 9 / 10);
  const int64_t heap1 = soak::HeapInUseBytes();
  std::free(block);
  if (heap0 < 0) return;
  EXPECT_GE(heap1 - heap0, static_cast<int64_t>(kBytes));
  EXPECT_EQ(soak::HeapInUseBytes(), heap0);
}
#endif

}  // namespace
