// Per-frame times of one benchmark run and their percentiles.
#pragma once

#include <cstddef>
#include <vector>

namespace plovix_bench {

class FrameSamples {
 public:
  // Reserves room so that adding up to expected samples never allocates inside a timed loop.
  explicit FrameSamples(size_t expected) { samples_.reserve(expected); }
  void Add(double seconds) { samples_.push_back(seconds); }
  size_t size() const { return samples_.size(); }
  // Nearest-rank percentile (p in 0..100]: the smallest sample with at least p percent of the
  // samples at or below it. 0 without samples.
  double Percentile(double p) const;

 private:
  std::vector<double> samples_;
};

}  // namespace plovix_bench
