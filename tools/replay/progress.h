// A one-line progress bar on stderr, redrawn in place; only used when stderr is a terminal.
#pragma once

#include <cstdio>

namespace plovix_replay {

class ProgressBar {
 public:
  explicit ProgressBar(std::FILE* out) : out_(out) {}
  // total -1: unknown length, only the count is shown.
  void Update(long done, long total);
  // Clears the line.
  void Finish();

 private:
  std::FILE* out_;
  int lastPermille_ = -1;
  long lastDone_ = -1;
  bool drawn_ = false;
};

}  // namespace plovix_replay
