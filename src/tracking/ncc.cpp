#include "tracking/ncc.h"

#include <algorithm>
#include <cstring>

#include "platform/arith.h"
#include "platform/log.h"
#include "platform/memory.h"

namespace {

constexpr int kNoMatchScore = -100;
constexpr int64_t kMinVarianceProduct = 100;
constexpr uint32_t kInvSqrtMagic = 0x5f3759df;
constexpr float kScorePercent = 100.0f;

struct PatchSums {
  uint32_t sumA = 0;
  uint32_t sumB = 0;
  uint64_t sumAA = 0;
  uint64_t sumBB = 0;
  uint64_t sumAB = 0;
};

void AddPair(PatchSums* s, uint32_t a, uint32_t b) {
  s->sumA += a;
  s->sumB += b;
  s->sumAA += uint64_t{a} * a;
  s->sumBB += uint64_t{b} * b;
  s->sumAB += uint64_t{a} * b;
}

// Sums over the rows x cols patch whose first image byte is at linear index imageStart (row stride
// w) and whose first template byte is tmplStart (row stride tw). Image bytes outside the w * h
// plane count as 0.
PatchSums SumPatch(const uint8_t* image, int w, int h, int64_t imageStart, const uint8_t* tmplStart, int tw,
                   int rows, int cols) {
  PatchSums s;
  const int64_t planeSize = int64_t{w} * h;
  for (int i = 0; i < rows; ++i) {
    const int64_t rowStart = imageStart + int64_t{i} * w;
    const uint8_t* b = tmplStart + static_cast<int64_t>(i) * tw;
    if (rowStart >= 0 && rowStart + cols <= planeSize) {
      const uint8_t* a = image + rowStart;
      for (int j = 0; j < cols; ++j) AddPair(&s, a[j], b[j]);
    } else {
      for (int j = 0; j < cols; ++j) AddPair(&s, ByteOrZero(image, planeSize, rowStart + j), b[j]);
    }
  }
  return s;
}

// Sum of squared deviations from the integer mean, in mixed widths: the three-factor products
// wrap in 32 bits before they meet the 64-bit sum. Large bright patches do wrap, and scores
// depend on it; do not widen.
uint64_t Variance(uint64_t sumSq, uint32_t sum, uint32_t mean, uint32_t n) {
  const uint32_t cross = 2u * sum * mean;
  const uint32_t square = mean * n * mean;
  return sumSq - uint64_t{cross} + uint64_t{square};
}

int64_t Covariance(const PatchSums& s, uint32_t meanA, uint32_t meanB, uint32_t n) {
  const uint32_t aTimesSumB = meanA * s.sumB;
  const uint32_t bTimesSumA = meanB * s.sumA;
  const uint32_t meanProduct = meanA * n * meanB;
  return static_cast<int64_t>(s.sumAB - uint64_t{aTimesSumB} - uint64_t{bTimesSumA} + uint64_t{meanProduct});
}

// 1 / sqrt(q) by the bit-trick estimate and two Newton steps. Not a library square root: scores
// near the refresh threshold depend on this exact approximation (q = 1 gives 99, not 100).
float FastInverseSqrt(float q) {
  uint32_t bits;
  std::memcpy(&bits, &q, sizeof bits);
  bits = kInvSqrtMagic - (bits >> 1);
  float y0;
  std::memcpy(&y0, &bits, sizeof y0);
  const float x2 = 0.5f * q;
  const float y1 = y0 * (1.5f - x2 * y0 * y0);
  return y1 * (1.5f - y1 * (x2 * y1));
}

int ScoreFromSums(const PatchSums& s, uint32_t n) {
  const uint32_t meanA = n == 0 ? 0 : s.sumA / n;
  const uint32_t meanB = n == 0 ? 0 : s.sumB / n;
  const uint64_t varA = Variance(s.sumAA, s.sumA, meanA, n);
  const uint64_t varB = Variance(s.sumBB, s.sumB, meanB, n);
  const int64_t d = static_cast<int64_t>(varA * varB);
  if (d < kMinVarianceProduct) return kNoMatchScore;
  const int64_t c = Covariance(s, meanA, meanB, n);
  const float fc = static_cast<float>(c);
  const float q = fc * fc / static_cast<float>(d);
  const float sign = c < 0 ? -1.0f : 1.0f;
  return TruncToInt(sign * FastInverseSqrt(q) * (q * kScorePercent));
}

}  // namespace

int matching_ncc(uint8_t* y, OT_RECT rect, int w, int h, uint8_t* tmpl, int tw, int th) {
  const int32_t cw = std::min(Wrap32Sub(rect.right, rect.left), tw);
  const int32_t ch = std::min(Wrap32Sub(rect.bottom, rect.top), th);
  if (tmpl == nullptr || tw < 1 || th < 1) {
    PLOVIX_LOGE("Can't update NCC for lack of information");
    return kNoMatchScore;
  }
  // Both patches are centred: in the rectangle and in the template.
  const int32_t imageRow = Wrap32Sub(Wrap32Add(rect.top, rect.bottom) / 2, ch / 2);
  const int32_t imageCol = Wrap32Sub(Wrap32Add(rect.left, rect.right) / 2, cw / 2);
  const int32_t tmplRow = th / 2 - ch / 2;
  const int32_t tmplCol = tw / 2 - cw / 2;
  PatchSums sums;
  if (ch >= 1 && cw >= 1) {
    const int64_t imageStart = int64_t{imageRow} * w + imageCol;
    sums = SumPatch(y, w, h, imageStart, tmpl + static_cast<int64_t>(tmplRow) * tw + tmplCol, tw, ch, cw);
  }
  return ScoreFromSums(sums, static_cast<uint32_t>(Wrap32Mul(ch, cw)));
}
