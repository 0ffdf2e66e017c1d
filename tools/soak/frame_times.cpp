#include "frame_times.h"

namespace soak {

namespace {

constexpr double kBucketsPerMs = 1000.0;
constexpr int kBucketCount = 50000;  // 50 ms

}  // namespace

// Every bucket is written here, so their pages are resident before the memory figures are taken.
FrameTimes::FrameTimes() : buckets_(kBucketCount) {
  for (uint32_t& b : buckets_) b = 0;
}

void FrameTimes::Add(double ms, double cpuMs, int64_t frame) {
  if (cpuMs > max_cpu_ms_) max_cpu_ms_ = cpuMs;
  total_ms_ += ms;
  int i = static_cast<int>(ms * kBucketsPerMs);
  if (i < 0) i = 0;
  if (i >= kBucketCount) i = kBucketCount - 1;
  ++buckets_[i];
  ++count_;
  if (ms > max_ms_ || max_frame_ < 0) {
    max_ms_ = ms;
    max_frame_ = frame;
  }
}

double FrameTimes::MedianMs() const {
  if (count_ == 0) return 0;
  const int64_t rank = (count_ + 1) / 2;
  int64_t seen = 0;
  for (int i = 0; i < kBucketCount; ++i) {
    seen += buckets_[i];
    if (seen >= rank) return i / kBucketsPerMs;
  }
  return (kBucketCount - 1) / kBucketsPerMs;
}

int64_t FrameTimes::CountAbove(double ms) const {
  int64_t n = 0;
  for (int i = static_cast<int>(ms * kBucketsPerMs) + 1; i < kBucketCount; ++i) n += buckets_[i];
  return n;
}

}  // namespace soak
