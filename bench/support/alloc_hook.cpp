#include "support/alloc_hook.h"

#include <malloc.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <new>

extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* p, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
void __libc_free(void* p);
}

namespace plovix_bench {
namespace {

std::atomic<bool> g_counting{false};
std::atomic<uint64_t> g_calls{0};
std::atomic<int64_t> g_live{0};
std::atomic<int64_t> g_peak{0};

bool Counting() { return g_counting.load(std::memory_order_relaxed); }

void NoteAllocation(void* p) {
  if (p == nullptr) return;
  g_calls.fetch_add(1, std::memory_order_relaxed);
  const int64_t bytes = static_cast<int64_t>(malloc_usable_size(p));
  const int64_t live = g_live.fetch_add(bytes, std::memory_order_relaxed) + bytes;
  int64_t peak = g_peak.load(std::memory_order_relaxed);
  while (live > peak && !g_peak.compare_exchange_weak(peak, live, std::memory_order_relaxed)) {
  }
}

void NoteRelease(void* p) {
  if (p == nullptr) return;
  g_live.fetch_sub(static_cast<int64_t>(malloc_usable_size(p)), std::memory_order_relaxed);
}

void* Aligned(size_t alignment, size_t size) {
  void* p = __libc_memalign(alignment, size);
  if (Counting()) NoteAllocation(p);
  return p;
}

}  // namespace

void StartHeapCounting() { g_counting.store(true, std::memory_order_seq_cst); }
void StopHeapCounting() { g_counting.store(false, std::memory_order_seq_cst); }

void ResetHeapCounts() {
  g_calls.store(0);
  g_live.store(0);
  g_peak.store(0);
}

HeapCounts ReadHeapCounts() {
  HeapCounts c;
  c.calls = g_calls.load();
  c.liveBytes = g_live.load();
  c.peakBytes = g_peak.load();
  return c;
}

}  // namespace plovix_bench

using plovix_bench::Counting;
using plovix_bench::NoteAllocation;
using plovix_bench::NoteRelease;

extern "C" {

void* malloc(size_t size) noexcept {
  void* p = __libc_malloc(size);
  if (Counting()) NoteAllocation(p);
  return p;
}

void* calloc(size_t count, size_t size) noexcept {
  void* p = __libc_calloc(count, size);
  if (Counting()) NoteAllocation(p);
  return p;
}

void* realloc(void* old, size_t size) noexcept {
  const bool counting = Counting();
  if (counting) NoteRelease(old);
  void* p = __libc_realloc(old, size);
  if (counting) {
    // A failed realloc keeps the old block alive.
    NoteAllocation(p != nullptr || size == 0 ? p : old);
  }
  return p;
}

void free(void* p) noexcept {
  if (Counting()) NoteRelease(p);
  __libc_free(p);
}

void* memalign(size_t alignment, size_t size) noexcept { return plovix_bench::Aligned(alignment, size); }

void* aligned_alloc(size_t alignment, size_t size) noexcept { return plovix_bench::Aligned(alignment, size); }

int posix_memalign(void** out, size_t alignment, size_t size) noexcept {
  if (alignment < sizeof(void*) || (alignment & (alignment - 1)) != 0) return EINVAL;
  void* p = plovix_bench::Aligned(alignment, size);
  if (p == nullptr) return ENOMEM;
  *out = p;
  return 0;
}

}  // extern "C"

void* operator new(size_t size) {
  void* p = malloc(size == 0 ? 1 : size);
  if (p == nullptr) throw std::bad_alloc();
  return p;
}
void* operator new[](size_t size) { return operator new(size); }
void* operator new(size_t size, const std::nothrow_t&) noexcept { return malloc(size == 0 ? 1 : size); }
void* operator new[](size_t size, const std::nothrow_t&) noexcept { return malloc(size == 0 ? 1 : size); }
void operator delete(void* p) noexcept { free(p); }
void operator delete[](void* p) noexcept { free(p); }
void operator delete(void* p, size_t) noexcept { free(p); }
void operator delete[](void* p, size_t) noexcept { free(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { free(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { free(p); }
