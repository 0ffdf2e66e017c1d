// Arithmetic rules shared by every subsystem, one helper per rule, so that results equal the
// two's-complement, truncating hardware the engine ships on and sanitizers stay quiet.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

// 32-bit signed arithmetic that wraps instead of overflowing.
inline int32_t Wrap32Add(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}
inline int32_t Wrap32Sub(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}
inline int32_t Wrap32Mul(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}
inline int32_t Wrap32Neg(int32_t a) { return static_cast<int32_t>(0u - static_cast<uint32_t>(a)); }
// Truncating division; INT32_MIN / -1 wraps to INT32_MIN and division by zero gives 0.
inline int32_t Wrap32Div(int32_t a, int32_t b) {
  if (b == 0) return 0;
  if (b == -1) return Wrap32Neg(a);
  return a / b;
}

// Float or double to integer: truncation toward zero, NaN gives 0, out-of-range values saturate
// (the arm64 conversion instructions behave so; x86 would give INT_MIN instead).
template <typename Int, typename Real>
inline Int TruncTo(Real v) {
  if (std::isnan(v)) return 0;
  if (v <= static_cast<Real>(std::numeric_limits<Int>::min())) return std::numeric_limits<Int>::min();
  if (v >= static_cast<Real>(std::numeric_limits<Int>::max())) return std::numeric_limits<Int>::max();
  return static_cast<Int>(v);
}
inline int32_t TruncToInt(float v) { return TruncTo<int32_t>(v); }
inline int32_t TruncToInt(double v) { return TruncTo<int32_t>(v); }
inline int64_t TruncToInt64(double v) { return TruncTo<int64_t>(v); }
