// Wall time of single process_plovix calls: the maximum exactly, the median from a histogram of
// 1-microsecond buckets, so that recording costs no allocation during the run. The largest CPU
// time of the calling thread tells a slow call from one that was preempted.
#pragma once

#include <cstdint>
#include <vector>

namespace soak {

class FrameTimes {
 public:
  FrameTimes();
  void Add(double wallMs, double cpuMs, int64_t frame);
  int64_t count() const { return count_; }
  double MaxMs() const { return max_ms_; }
  int64_t MaxFrame() const { return max_frame_; }
  double MaxCpuMs() const { return max_cpu_ms_; }
  double TotalMs() const { return total_ms_; }
  // The lower median, to the bucket; calls beyond the histogram's range count as its last bucket.
  double MedianMs() const;
  // Calls that took longer than ms, to the bucket.
  int64_t CountAbove(double ms) const;

 private:
  std::vector<uint32_t> buckets_;
  int64_t count_ = 0;
  double max_ms_ = 0;
  int64_t max_frame_ = -1;
  double max_cpu_ms_ = 0;
  double total_ms_ = 0;
};

}  // namespace soak
