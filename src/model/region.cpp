#include "model/region.h"

#include <algorithm>
#include <cstddef>

#include "engine/tuning.h"
#include "platform/arith.h"

namespace {

constexpr int kClosedRectNoneMin = 99999;
constexpr int kClosedRectNoneMax = 0;
constexpr int32_t kPercent = 100;

int64_t FloorDiv(int64_t a, int64_t b) { return a >= 0 ? a / b : -((-a + b - 1) / b); }
int64_t CeilDiv(int64_t a, int64_t b) { return -FloorDiv(-a, b); }

// Calls visit(row, firstColumn, pixels, count) for each run of rect's pixels whose linear index
// row * stride + column lies inside the stride * h bytes of the image; every other pixel of rect
// is left out, which makes it count as 0. A column past the row end (or before its start) still
// reads the neighbouring row when that byte is inside the image.
template <typename VisitRun>
void ForEachReadableRun(const uint8_t* image, int stride, int h, OT_RECT rect, VisitRun visit) {
  if (rect.top >= rect.bottom || rect.left >= rect.right || stride <= 0 || h <= 0) return;
  const int64_t size = int64_t{stride} * h;
  const int64_t first = int64_t{rect.top} * stride + rect.left;
  const int64_t last = (int64_t{rect.bottom} - 1) * stride + rect.right - 1;
  if (first >= 0 && last < size) {
    for (int64_t row = rect.top; row < rect.bottom; ++row) {
      visit(row, int64_t{rect.left}, image + row * stride + rect.left, int64_t{rect.right} - rect.left);
    }
    return;
  }
  // Only rows that hold at least one readable index: row * stride + right - 1 >= 0 and
  // row * stride + left < size.
  const int64_t rowFrom = std::max<int64_t>(rect.top, CeilDiv(1 - int64_t{rect.right}, stride));
  const int64_t rowTo = std::min<int64_t>(int64_t{rect.bottom} - 1, FloorDiv(size - 1 - rect.left, stride));
  for (int64_t row = rowFrom; row <= rowTo; ++row) {
    const int64_t base = row * stride;
    const int64_t x0 = std::max<int64_t>(rect.left, -base);
    const int64_t x1 = std::min<int64_t>(rect.right, size - base);
    if (x0 < x1) visit(row, x0, image + base + x0, x1 - x0);
  }
}

// The run sums below go over fixed chunks, each summed in 32 bits, so that the compiler vectorises
// them at every optimisation level; a chunk's sums stay far below 2^32. Kept out of line: inlined
// into both paths of every caller, the vectorised loops would multiply the library's code.
constexpr int64_t kChunk = 16;

struct RunMoments {
  uint64_t sum = 0;
  uint64_t sumX = 0;  // sum of offset-in-run * weight
};

__attribute__((noinline)) RunMoments MomentsOfRun(const uint8_t* p, int64_t n) {
  RunMoments r;
  int64_t i = 0;
  for (; i + kChunk <= n; i += kChunk) {
    uint32_t sum = 0;
    uint32_t sumX = 0;
    for (int64_t j = 0; j < kChunk; ++j) {
      sum += p[i + j];
      sumX += static_cast<uint32_t>(j) * p[i + j];
    }
    r.sum += sum;
    r.sumX += static_cast<uint64_t>(i) * sum + sumX;
  }
  for (; i < n; ++i) {
    r.sum += p[i];
    r.sumX += static_cast<uint64_t>(i) * p[i];
  }
  return r;
}

__attribute__((noinline)) uint64_t SumRunWeights(const uint8_t* p, int64_t n) {
  uint64_t sum = 0;
  int64_t i = 0;
  for (; i + kChunk <= n; i += kChunk) {
    uint32_t chunk = 0;
    for (int64_t j = 0; j < kChunk; ++j) chunk += p[i + j];
    sum += chunk;
  }
  for (; i < n; ++i) sum += p[i];
  return sum;
}

// Compares bytes with a byte: every weight is above a negative threshold and none above 254.
__attribute__((noinline)) int64_t CountRunAbove(const uint8_t* p, int64_t n, int threshold) {
  if (threshold < 0) return n;
  if (threshold >= UINT8_MAX) return 0;
  const uint8_t limit = static_cast<uint8_t>(threshold);
  int64_t count = 0;
  int64_t i = 0;
  for (; i + kChunk <= n; i += kChunk) {
    uint32_t chunk = 0;
    for (int64_t j = 0; j < kChunk; ++j) chunk += (p[i + j] > limit) ? 1u : 0u;
    count += chunk;
  }
  for (; i < n; ++i) count += (p[i] > limit) ? 1 : 0;
  return count;
}

// Weighted mean rounded to the nearest pixel, halves upward, in unsigned 64-bit division.
int32_t RoundedMean(uint64_t weighted, uint64_t sum) { return static_cast<int32_t>((weighted + sum / 2) / sum); }

}  // namespace

WeightMoments MomentsInRect(const uint8_t* weights, int stride, int h, OT_RECT rect) {
  WeightMoments m;
  ForEachReadableRun(weights, stride, h, rect, [&](int64_t row, int64_t x0, const uint8_t* p, int64_t n) {
    const RunMoments r = MomentsOfRun(p, n);
    m.sum += r.sum;
    // A negative first column wraps, as the per-pixel products would.
    m.sumX += static_cast<uint64_t>(x0) * r.sum + r.sumX;
    m.sumY += static_cast<uint64_t>(row) * r.sum;
  });
  return m;
}

int64_t SumWeightsInRect(const uint8_t* weights, int stride, int h, OT_RECT rect) {
  int64_t sum = 0;
  ForEachReadableRun(weights, stride, h, rect, [&](int64_t, int64_t, const uint8_t* p, int64_t n) {
    sum += static_cast<int64_t>(SumRunWeights(p, n));
  });
  return sum;
}

int32_t CountWeightsAbove(const uint8_t* weights, int stride, int h, OT_RECT rect, int threshold) {
  int32_t count = 0;
  ForEachReadableRun(weights, stride, h, rect, [&](int64_t, int64_t, const uint8_t* p, int64_t n) {
    count = Wrap32Add(count, static_cast<int32_t>(CountRunAbove(p, n, threshold)));
  });
  return count;
}

int GetWeightCenter_Obj(uint8_t* weights, int stride, int h, OT_RECT rect, int* cx, int* cy) {
  const WeightMoments m = MomentsInRect(weights, stride, h, rect);
  if (m.sum == 0) {
    *cx = Wrap32Add(rect.left, rect.right) >> 1;
    *cy = Wrap32Add(rect.top, rect.bottom) >> 1;
    return 0;
  }
  *cx = RoundedMean(m.sumX, m.sum);
  *cy = RoundedMean(m.sumY, m.sum);
  return static_cast<int32_t>(m.sum);
}

int GetFilledRates_Obj(uint8_t* weights, int stride, int h, OT_RECT rect, int threshold) {
  const int32_t area = Wrap32Mul(Wrap32Sub(rect.bottom, rect.top), Wrap32Sub(rect.right, rect.left));
  if (rect.bottom <= rect.top || rect.right <= rect.left) return 0;
  const int32_t count = CountWeightsAbove(weights, stride, h, rect, threshold);
  return Wrap32Div(Wrap32Mul(count, kPercent), area);
}

int GetFilledPixels_Obj(uint8_t* weights, int stride, int h, OT_RECT rect, int threshold) {
  if (rect.bottom <= rect.top || rect.right <= rect.left) return 0;
  return CountWeightsAbove(weights, stride, h, rect, threshold);
}

OT_RECT GetClosedRect(uint8_t* image, int left, int right, int top, int bottom, int stride, int /*unused*/) {
  int minX = kClosedRectNoneMin;
  int minY = kClosedRectNoneMin;
  int maxX = kClosedRectNoneMax;
  int maxY = kClosedRectNoneMax;
  for (int y = top; y < bottom; ++y) {
    const uint8_t* row = image + static_cast<ptrdiff_t>(y) * stride;
    for (int x = left; x < right; ++x) {
      if (row[x] == 0) continue;
      minX = std::min(minX, x);
      maxX = std::max(maxX, x);
      minY = std::min(minY, y);
      maxY = std::max(maxY, y);
    }
  }
  if (minX > maxX || minY > maxY) return OT_RECT{left, top, right, bottom};
  // Inclusive on purpose: callers add 1 where they need an exclusive edge.
  return OT_RECT{minX, minY, maxX, maxY};
}

OT_RECT MoveNoOutofImage_Obj(OT_RECT rect, int w, int h) {
  if (rect.left < 0) {
    rect.right = Wrap32Sub(rect.right, rect.left);
    rect.left = 0;
  }
  if (rect.right > w) {
    rect.left = Wrap32Add(rect.left, Wrap32Sub(w, rect.right));
    rect.right = w;
  }
  if (rect.top < 0) {
    rect.bottom = Wrap32Sub(rect.bottom, rect.top);
    rect.top = 0;
  }
  if (rect.bottom > h) {
    rect.top = Wrap32Add(rect.top, Wrap32Sub(h, rect.bottom));
    rect.bottom = h;
  }
  return rect;
}

bool ValidRectangle_Obj(int w, int h, OT_RECT rect) {
  if (rect.left < 0 || rect.top < 0 || rect.right > w || rect.bottom > h) return false;
  const int32_t width = Wrap32Sub(rect.right, rect.left);
  const int32_t height = Wrap32Sub(rect.bottom, rect.top);
  if (width < g_MIN_OBJ_SIZE || height < g_MIN_OBJ_SIZE) return false;
  return width <= g_MAX_OBJ_SIZE && height <= g_MAX_OBJ_SIZE;
}
