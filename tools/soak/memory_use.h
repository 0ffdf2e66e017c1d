// The process's memory figures, read without allocating so that reading them does not move them.
#pragma once

#include <cstdint>

namespace soak {

// VmRSS of /proc/self/status in KB, or -1 when it cannot be read.
int64_t ResidentKb();

// The value in KB of the "key:" line of a /proc/<pid>/status text, or -1 when absent.
int64_t StatusFieldKb(const char* status, const char* key);

// Bytes the C allocator has handed out and not yet taken back, or -1 where the C library cannot
// tell. Unlike the resident size it moves with every block, so a leak of a few bytes shows.
int64_t HeapInUseBytes();

}  // namespace soak
