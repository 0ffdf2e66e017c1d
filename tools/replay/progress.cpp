#include "progress.h"

#include <string>

namespace plovix_replay {
namespace {

constexpr int kBarWidth = 40;
constexpr long kUnknownLengthStep = 10;  // redraw every this many frames when the total is unknown

}  // namespace

void ProgressBar::Update(long done, long total) {
  if (total > 0) {
    const int permille = static_cast<int>(done * 1000 / total);
    if (permille == lastPermille_) return;
    lastPermille_ = permille;
    const int filled = static_cast<int>(done * kBarWidth / total);
    std::string bar(static_cast<size_t>(filled), '#');
    bar.resize(kBarWidth, '.');
    std::fprintf(out_, "\r[%s] %ld/%ld frames", bar.c_str(), done, total);
  } else {
    if (lastDone_ >= 0 && done - lastDone_ < kUnknownLengthStep) return;
    lastDone_ = done;
    std::fprintf(out_, "\r%ld frames", done);
  }
  std::fflush(out_);
  drawn_ = true;
}

void ProgressBar::Finish() {
  if (!drawn_) return;
  std::fprintf(out_, "\r%*s\r", kBarWidth + 32, "");
  std::fflush(out_);
  drawn_ = false;
}

}  // namespace plovix_replay
