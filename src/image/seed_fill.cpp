#include "image/seed_fill.h"

#include <cstdlib>
#include <cstring>

#include "image/dib.h"
#include "platform/arith.h"
#include "platform/memory.h"

namespace {

constexpr uint8_t kFilled = 255;
// Hole filling follows pixels of the seed's mask value: 0 and 255 differ by far more than this.
constexpr int kHoleFillThreshold = 1;

int Channel(Pixel p, int shift) { return static_cast<int>((p >> shift) & 0xFF); }

// A span of row `row` from xl to xr whose parent row lies at row - dir. Stored as 16-bit values,
// so coordinates must fit in int16.
struct Segment {
  int16_t row;
  int16_t xl;
  int16_t xr;
  int16_t dir;
};

class SegmentStack {
 public:
  explicit SegmentStack(int height) : height_(height) {}

  // Dropped silently when full or when the row it leads to lies outside the image.
  void Push(int row, int xl, int xr, int dir) {
    const int next = row + dir;
    if (size_ >= kSeedStackCapacity || next < 0 || next > height_ - 1) return;
    entries_[size_++] = Segment{static_cast<int16_t>(row), static_cast<int16_t>(xl), static_cast<int16_t>(xr),
                                static_cast<int16_t>(dir)};
  }
  bool Empty() const { return size_ == 0; }
  Segment Pop() { return entries_[--size_]; }

 private:
  int height_;
  int size_ = 0;
  Segment entries_[kSeedStackCapacity];
};

// Reads and writes stay inside the width*height planes even for coordinates that did not survive
// the 16-bit segment stack.
bool InPlane(const SeedFill& f, int64_t i) { return i >= 0 && i < static_cast<int64_t>(f.width) * f.height; }

int64_t Index(const SeedFill& f, int x, int y) { return static_cast<int64_t>(f.width) * y + x; }

// The left run and everything right of it for one popped segment: the scan-line fill's inner loop.
void FillSegment(SeedFill* f, SegmentStack* stack, const Segment& s, Pixel pivot) {
  const int dir = s.dir;
  const int y = s.row + dir;
  const int x1 = s.xl;
  const int x2 = s.xr;
  int x = x1;
  for (; x >= 0 && f->compare(x, y, pivot); --x) f->pixelwrite(x, y);
  int left = x + 1;
  bool inRun = x < x1;
  if (inRun) {
    if (left < x1) stack->Push(y, left, x1 - 1, -dir);
    x = x1 + 1;
  }
  // Nothing written at x1: start by skipping, as if a right run had just ended there.
  for (;;) {
    if (inRun) {
      for (; x < f->width && f->compare(x, y, pivot); ++x) f->pixelwrite(x, y);
      stack->Push(y, left, x - 1, dir);
      if (x > x2 + 1) stack->Push(y, x2 + 1, x - 1, -dir);
    }
    for (++x; x <= x2 && !f->compare(x, y, pivot); ++x) {
    }
    left = x;
    if (x > x2) return;
    inRun = true;
  }
}

size_t RowPad(int width) { return static_cast<size_t>(width > 0 ? width : 0); }

uint8_t* AllocCopy(const uint8_t* src, int32_t bytes, int width) {
  uint8_t* copy = AllocZeroedImage(static_cast<size_t>(bytes), RowPad(width));
  if (copy != nullptr && bytes > 0) std::memcpy(copy, src, static_cast<size_t>(bytes));
  return copy;
}

// Compares the right and bottom edges with width - 1 and height - 1 although segmentation clips
// its rectangle at width and height: a rectangle reaching those borders is still filled. Kept.
bool ShouldFillHoles(int l, int t, int r, int b, int width, int height) {
  if (l == 0 || t == 0 || r == width - 1 || b == height - 1) return false;
  return !(l <= 0 && t <= 0 && r >= width - 1 && b >= height - 1);
}

}  // namespace

Pixel SeedFill::pixelread(int x, int y) {
  const int64_t i = Index(*this, x, y);
  const int64_t c = static_cast<int64_t>(width) * (y >> 1) + (x >> 1);
  const Pixel luma = InPlane(*this, i) ? image[i] : 0;
  // The chroma plane is half the size; its allocation carries a zero pad for the last pair.
  const Pixel cb = (c >= 0) ? chroma[c] : 0;
  const Pixel cr = (c >= 0) ? chroma[c + 1] : 0;
  return luma | (cb << 8) | (cr << 16);
}

void SeedFill::pixelwrite(int x, int y) {
  const int64_t i = Index(*this, x, y);
  if (InPlane(*this, i)) filled[i] = kFilled;
}

bool SeedFill::compare(int x, int y, Pixel p) {
  const int64_t i = Index(*this, x, y);
  if (InPlane(*this, i) && filled[i] == kFilled) return false;
  const Pixel q = pixelread(x, y);
  const int distance = std::abs(Channel(p, 0) - Channel(q, 0)) + std::abs(Channel(p, 8) - Channel(q, 8)) +
                       std::abs(Channel(p, 16) - Channel(q, 16));
  return distance <= threshold;
}

void SeedFill::doFill(int x, int y) {
  if (x < 0 || x >= width || y < 0 || y >= height) return;
  const Pixel pivot = pixelread(x, y);
  SegmentStack stack(height);
  stack.Push(y, x, x, 1);
  stack.Push(y + 1, x, x, -1);
  while (!stack.Empty()) FillSegment(this, &stack, stack.Pop(), pivot);
}

uint8_t* Segment_FillHoles(uint8_t* mask, int width, int height, int /*a*/, int /*b*/, int /*c*/, int* l, int* t,
                           int* r, int* bottom) {
  const int left = *l;
  const int top = *t;
  const int right = *r;
  const int bot = *bottom;
  const int32_t n = Wrap32Mul(width, height);
  if (mask == nullptr || n < 0) return mask;

  uint8_t* copy = AllocCopy(mask, n, width);
  uint8_t* chroma = AllocZeroedImage(static_cast<size_t>(n / 2), RowPad(width));
  uint8_t* output = AllocZeroedImage(static_cast<size_t>(n), RowPad(width));
  const bool fill = ShouldFillHoles(left, top, right, bot, width, height);
  if (copy == nullptr || chroma == nullptr || output == nullptr || !fill) {
    std::free(output);
    std::free(copy);
    std::free(chroma);
    return mask;
  }

  SeedFill seed{width, height, copy, chroma, output, kHoleFillThreshold};
  if (left > 0 || top > 0) {
    seed.doFill(0, 0);
  } else {
    seed.doFill(width - 1, height - 1);
  }
  // Background reached from the corner becomes 0; the object, its holes and any background cut
  // off from the corner become 255.
  tag_CDibY view{output, width, height, width};
  CDibY_Inverse(&view);
  std::free(mask);
  std::free(copy);
  std::free(chroma);
  return output;
}
