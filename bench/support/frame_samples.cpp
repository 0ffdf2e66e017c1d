#include "support/frame_samples.h"

#include <algorithm>
#include <cmath>

namespace plovix_bench {

double FrameSamples::Percentile(double p) const {
  if (samples_.empty()) return 0.0;
  std::vector<double> sorted = samples_;
  std::sort(sorted.begin(), sorted.end());
  const double rank = std::ceil(p / 100.0 * static_cast<double>(sorted.size()));
  const size_t index = static_cast<size_t>(std::clamp(rank, 1.0, static_cast<double>(sorted.size()))) - 1;
  return sorted[index];
}

}  // namespace plovix_bench
