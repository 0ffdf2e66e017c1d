// Builders shared by the replay tool's tests: temporary files and small Y4M clips in memory.
#pragma once

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "gtest/gtest.h"

namespace replay_test {

// A fresh path under the test temp folder, unique per call within a run.
// Paths in a fresh directory of this process: a reused pid must not meet an earlier run's files.
inline std::string TempPath(const std::string& name) {
  static const std::string dir = [] {
    std::string pattern = testing::TempDir() + "replay_XXXXXX";
    return mkdtemp(&pattern[0]) != nullptr ? pattern + "/" : testing::TempDir() + "replay_";
  }();
  static int counter = 0;
  return dir + std::to_string(counter++) + "_" + name;
}

inline std::string WriteFile(const std::string& name, const std::string& bytes) {
  const std::string path = TempPath(name);
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

// A Y4M clip of w x h whose frame i has luma i, U 100 + i and V 200 + i everywhere.
inline std::string MakeY4m(int w, int h, int frames,
                           const std::string& tags = " F30:1 Ip C420jpeg") {
  std::string s = "YUV4MPEG2 W" + std::to_string(w) + " H" + std::to_string(h) + tags + "\n";
  const size_t luma = static_cast<size_t>(w) * h;
  const size_t chroma = static_cast<size_t>((w + 1) / 2) * ((h + 1) / 2);
  for (int i = 0; i < frames; ++i) {
    s += "FRAME\n";
    s += std::string(luma, static_cast<char>(i));
    s += std::string(chroma, static_cast<char>(100 + i));
    s += std::string(chroma, static_cast<char>(200 + i));
  }
  return s;
}

// A read-only stream over bytes that cannot be measured up front, like a pipe.
inline std::FILE* StreamOf(const std::string& bytes) {
  const std::string path = WriteFile("stream.bin", bytes);
  return std::fopen(path.c_str(), "rb");
}

}  // namespace replay_test
