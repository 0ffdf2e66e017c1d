#include "memory_use.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace soak {

namespace {

// /proc/self/status is about 1.5 KB.
constexpr size_t kStatusBufferBytes = 8192;

}  // namespace

int64_t StatusFieldKb(const char* status, const char* key) {
  const size_t n = std::strlen(key);
  for (const char* line = status; line != nullptr && *line != '\0';) {
    if (std::strncmp(line, key, n) == 0 && line[n] == ':') return std::strtoll(line + n + 1, nullptr, 10);
    line = std::strchr(line, '\n');
    if (line != nullptr) ++line;
  }
  return -1;
}

int64_t ResidentKb() {
  static char buffer[kStatusBufferBytes];
  const int fd = open("/proc/self/status", O_RDONLY | O_CLOEXEC);
  if (fd < 0) return -1;
  size_t used = 0;
  ssize_t got = 0;
  while (used + 1 < sizeof(buffer) && (got = read(fd, buffer + used, sizeof(buffer) - 1 - used)) > 0) {
    used += static_cast<size_t>(got);
  }
  close(fd);
  buffer[used] = '\0';
  return StatusFieldKb(buffer, "VmRSS");
}

int64_t HeapInUseBytes() {
#if defined(__GLIBC__) && (__GLIBC__ > 2 || (__GLIBC__ == 2 && __GLIBC_MINOR__ >= 33))
  const struct mallinfo2 info = mallinfo2();
  return static_cast<int64_t>(info.uordblks + info.hblkhd);
#else
  return -1;
#endif
}

}  // namespace soak
