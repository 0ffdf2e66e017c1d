// How much fresh memory a benchmark must cycle through so that no frame is still cached when it
// comes round again, the way a camera delivers each preview frame in a buffer the CPU has not
// touched since the sensor wrote it.
#pragma once

#include <cstddef>
#include <string>

namespace plovix_bench {

// Bytes of a sysfs cache size such as "32768K" or "2M"; 0 when the text is not a size.
size_t ParseCacheSize(const std::string& text);

// Size of the largest (last-level) CPU cache, read from sysfs; a generous default where sysfs
// does not say (sysconf is not trusted: under some hypervisors it reports the host's cache).
size_t LastLevelCacheBytes();

// Number of distinct frames of frameBytes each that together hold at least twice cacheBytes
// (twice, because cache replacement is not perfectly LRU), and never fewer than 60.
int FramesToOutgrowCache(size_t frameBytes, size_t cacheBytes);

}  // namespace plovix_bench
