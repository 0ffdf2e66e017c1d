#include "support/cache_size.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>

namespace plovix_bench {
namespace {

constexpr size_t kDefaultCacheBytes = size_t{64} << 20;
constexpr int kMaxCacheIndex = 16;
constexpr size_t kCacheMultiple = 2;
// Frames are also the disc's lap: at least this long, so a tracker that stops following is off
// the disc most of the time.
constexpr int kMinFrames = 60;

bool ReadLine(const std::string& path, std::string* line) {
  std::ifstream in(path);
  return static_cast<bool>(std::getline(in, *line));
}

}  // namespace

size_t ParseCacheSize(const std::string& text) {
  size_t i = 0;
  size_t value = 0;
  while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) {
    value = value * 10 + static_cast<size_t>(text[i] - '0');
    ++i;
  }
  if (i == 0) return 0;
  const std::string unit = text.substr(i);
  if (unit.empty()) return value;
  if (unit.size() != 1) return 0;
  if (unit[0] == 'K') return value << 10;
  if (unit[0] == 'M') return value << 20;
  if (unit[0] == 'G') return value << 30;
  return 0;
}

size_t LastLevelCacheBytes() {
  int bestLevel = 0;
  size_t bestBytes = 0;
  for (int i = 0; i < kMaxCacheIndex; ++i) {
    const std::string dir = "/sys/devices/system/cpu/cpu0/cache/index" + std::to_string(i) + "/";
    std::string level;
    std::string type;
    std::string size;
    if (!ReadLine(dir + "level", &level) || !ReadLine(dir + "type", &type) || !ReadLine(dir + "size", &size)) {
      break;
    }
    if (type == "Instruction") continue;
    const int lv = std::atoi(level.c_str());
    const size_t bytes = ParseCacheSize(size);
    if (lv > bestLevel && bytes > 0) {
      bestLevel = lv;
      bestBytes = bytes;
    }
  }
  return bestBytes > 0 ? bestBytes : kDefaultCacheBytes;
}

int FramesToOutgrowCache(size_t frameBytes, size_t cacheBytes) {
  if (frameBytes == 0) return kMinFrames;
  const size_t need = (kCacheMultiple * cacheBytes + frameBytes - 1) / frameBytes;
  return static_cast<int>(std::max<size_t>(need, kMinFrames));
}

}  // namespace plovix_bench
