#include "model/weight_column_sums.h"

#include <cstddef>
#include <cstdlib>

namespace {

// A column's y * weight sum stays below 255 * h * (h - 1) / 2, within 32 bits up to this height.
constexpr int kMaxHeight = 5800;

bool Inside(const OT_RECT& r, int w, int h) {
  return r.left >= 0 && r.top >= 0 && r.left < r.right && r.top < r.bottom && r.right <= w && r.bottom <= h;
}

constexpr int kChunk = 16;

// The sums below a row from the sums above it. In fixed chunks over rows that never overlap, so
// that the compiler vectorises the loop at every optimisation level.
void AddRow(const uint8_t* __restrict px, uint32_t y, int w, const uint32_t* __restrict above,
            const uint32_t* __restrict yAbove, uint32_t* __restrict below, uint32_t* __restrict yBelow) {
  int x = 0;
  for (; x + kChunk <= w; x += kChunk) {
    for (int i = 0; i < kChunk; ++i) {
      below[x + i] = above[x + i] + px[x + i];
      yBelow[x + i] = yAbove[x + i] + y * px[x + i];
    }
  }
  for (; x < w; ++x) {
    below[x] = above[x] + px[x];
    yBelow[x] = yAbove[x] + y * px[x];
  }
}

}  // namespace

WeightColumnSums::WeightColumnSums(const uint8_t* weights, int w, int h)
    : weights_(weights), w_(w), h_(h), sums_(nullptr), ySums_(nullptr) {
  if (w < 1 || h < 1 || h > kMaxHeight) return;
  const size_t entries = static_cast<size_t>(w) * (static_cast<size_t>(h) + 1);
  sums_ = static_cast<uint32_t*>(std::malloc(2 * entries * sizeof(uint32_t)));
  if (sums_ == nullptr) return;
  ySums_ = sums_ + entries;
  for (int x = 0; x < w; ++x) sums_[x] = ySums_[x] = 0;
  for (int y = 0; y < h; ++y) {
    const size_t above = static_cast<size_t>(y) * w;
    AddRow(weights + above, static_cast<uint32_t>(y), w, sums_ + above, ySums_ + above, sums_ + above + w,
           ySums_ + above + w);
  }
}

WeightColumnSums::~WeightColumnSums() { std::free(sums_); }

WeightMoments WeightColumnSums::Moments(OT_RECT rect) const {
  if (sums_ == nullptr || !Inside(rect, w_, h_)) return MomentsInRect(weights_, w_, h_, rect);
  const uint32_t* top = sums_ + static_cast<size_t>(rect.top) * w_;
  const uint32_t* bottom = sums_ + static_cast<size_t>(rect.bottom) * w_;
  const uint32_t* yTop = ySums_ + static_cast<size_t>(rect.top) * w_;
  const uint32_t* yBottom = ySums_ + static_cast<size_t>(rect.bottom) * w_;
  WeightMoments m;
  for (int x = rect.left; x < rect.right; ++x) {
    const uint32_t column = bottom[x] - top[x];
    m.sum += column;
    m.sumX += static_cast<uint64_t>(x) * column;
    m.sumY += yBottom[x] - yTop[x];
  }
  return m;
}
