// What every fuzzer shares: a front-to-back reader of the fuzz input, exact-size heap buffers (so
// that ASan sees a read one byte past the end), a reset of the engine's process-wide state, and a
// hard stop when an invariant breaks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "image/ot_types.h"

namespace plovix_fuzz {

// Reads the input from its first byte on, so seeds can be written by hand; once the input is
// exhausted every read gives 0.
class ByteReader {
 public:
  ByteReader(const uint8_t* data, size_t size) : data_(data), size_(size) {}
  bool Empty() const { return pos_ >= size_; }
  uint8_t U8() { return Empty() ? 0 : data_[pos_++]; }
  uint16_t U16();
  int32_t I32();
  // One entry of a table, chosen by the next byte.
  template <typename T, size_t N>
  T Pick(const T (&table)[N]) {
    return table[U8() % N];
  }

 private:
  const uint8_t* data_;
  size_t size_;
  size_t pos_ = 0;
};

// A heap block of exactly n bytes, never null (also for n = 0), uninitialised.
class HeapBytes {
 public:
  explicit HeapBytes(size_t n) : bytes_(new uint8_t[n]), size_(n) {}
  uint8_t* get() const { return bytes_.get(); }
  size_t size() const { return size_; }

 private:
  std::unique_ptr<uint8_t[]> bytes_;
  size_t size_;
};

// A rectangle for an image of w x h: inside it, around it (larger than the image, as after a zoom
// step), inverted, up to a side outside; with anyIntegers also INT_MIN/INT_MAX edges and four
// arbitrary integers.
OT_RECT ReadRect(ByteReader* in, int w, int h, bool anyIntegers = true);

// A weight image of exactly w x h bytes: raw input bytes, or a few flat blobs on zero.
HeapBytes ReadWeights(ByteReader* in, int w, int h);

// Puts every module-level variable of the engine back to its load-time value (freeing the
// templates), so that each input runs as in a fresh process and a finding replays on its own.
void ResetEngineGlobals();

// Sends the engine's messages to a sink that formats and drops them.
void SilenceEngineLog();

// Tuning factors as the engine derives them for a working image of this height.
void SetTuningForWorkHeight(int workHeight);

// Prints what broke and aborts, which libFuzzer reports as a crash with the input saved.
[[noreturn]] void Violation(const char* what, long long a = 0, long long b = 0);

inline void Check(bool ok, const char* what, long long a = 0, long long b = 0) {
  if (!ok) Violation(what, a, b);
}

}  // namespace plovix_fuzz
