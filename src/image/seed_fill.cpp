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
// region.Row(y) gives the row's colour test, Accepts(x), and its write, Mark(x).
template <typename Region>
void FillSegment(Region& region, int width, SegmentStack* stack, const Segment& s) {
  const int dir = s.dir;
  const int y = s.row + dir;
  const int x1 = s.xl;
  const int x2 = s.xr;
  auto row = region.Row(y);
  int x = x1;
  for (; x >= 0 && row.Accepts(x); --x) row.Mark(x);
  int left = x + 1;
  bool inRun = x < x1;
  if (inRun) {
    if (left < x1) stack->Push(y, left, x1 - 1, -dir);
    x = x1 + 1;
  }
  // Nothing written at x1: start by skipping, as if a right run had just ended there.
  for (;;) {
    if (inRun) {
      for (; x < width && row.Accepts(x); ++x) row.Mark(x);
      stack->Push(y, left, x - 1, dir);
      if (x > x2 + 1) stack->Push(y, x2 + 1, x - 1, -dir);
    }
    for (++x; x <= x2 && !row.Accepts(x); ++x) {
    }
    left = x;
    if (x > x2) return;
    inRun = true;
  }
}

template <typename Region>
void ScanLineFill(Region& region, int width, int height, int x, int y) {
  SegmentStack stack(height);
  stack.Push(y, x, x, 1);
  stack.Push(y + 1, x, x, -1);
  while (!stack.Empty()) FillSegment(region, width, &stack, stack.Pop());
}

// The seed fill's own colour test and write, pixel by pixel through the packed colour.
struct ColourRegion {
  struct RowView {
    SeedFill* fill;
    Pixel pivot;
    int y;
    bool Accepts(int x) { return fill->compare(x, y, pivot); }
    void Mark(int x) { fill->pixelwrite(x, y); }
  };
  RowView Row(int y) { return RowView{fill, pivot, y}; }
  SeedFill* fill;
  Pixel pivot;
};

// Hole filling's region: pixels within threshold of the seed's mask value (its chroma is zero
// everywhere, so only the mask value counts). The output starts at 255 and reached pixels become
// 0, so the filled plane comes out already complemented. Only for planes the 16-bit segment stack
// can address, where every coordinate the fill visits lies inside.
struct MaskRegion {
  struct RowView {
    const uint8_t* mask;
    uint8_t* out;
    int pivot;
    int threshold;
    bool Accepts(int x) const { return out[x] != 0 && std::abs(mask[x] - pivot) <= threshold; }
    void Mark(int x) { out[x] = 0; }
  };
  RowView Row(int y) const {
    const size_t start = static_cast<size_t>(y) * width;
    return RowView{mask + start, out + start, pivot, threshold};
  }
  const uint8_t* mask;
  uint8_t* out;
  int width;
  int pivot;
  int threshold;
};

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

bool FitsSegmentStack(int width, int height) {
  return width >= 1 && height >= 1 && width <= INT16_MAX && height <= INT16_MAX;
}

// Background reached from the corner becomes 0; the object, its holes and any background cut off
// from the corner become 255. The mask is read in place and the output is written complemented,
// which gives what filling a copy and complementing the filled plane gives.
uint8_t* FillFromCorner(const uint8_t* mask, int width, int height, bool fromTopLeft) {
  const size_t n = static_cast<size_t>(width) * height;
  uint8_t* output = AllocZeroedImage(n, RowPad(width));
  if (output == nullptr) return nullptr;
  std::memset(output, kFilled, n);
  const int x = fromTopLeft ? 0 : width - 1;
  const int y = fromTopLeft ? 0 : height - 1;
  MaskRegion region{mask, output, width, mask[static_cast<size_t>(y) * width + x], kHoleFillThreshold};
  ScanLineFill(region, width, height, x, y);
  return output;
}

// The same through the seed fill itself, for planes too large for its 16-bit segment stack.
uint8_t* FillFromCornerColourwise(const uint8_t* mask, int width, int height, bool fromTopLeft) {
  const int32_t n = Wrap32Mul(width, height);
  uint8_t* copy = AllocCopy(mask, n, width);
  uint8_t* chroma = AllocZeroedImage(static_cast<size_t>(n / 2), RowPad(width));
  uint8_t* output = AllocZeroedImage(static_cast<size_t>(n), RowPad(width));
  if (copy != nullptr && chroma != nullptr && output != nullptr) {
    SeedFill seed{width, height, copy, chroma, output, kHoleFillThreshold};
    if (fromTopLeft) {
      seed.doFill(0, 0);
    } else {
      seed.doFill(width - 1, height - 1);
    }
    tag_CDibY view{output, width, height, width};
    CDibY_Inverse(&view);
  } else {
    std::free(output);
    output = nullptr;
  }
  std::free(copy);
  std::free(chroma);
  return output;
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
  ColourRegion region{this, pixelread(x, y)};
  ScanLineFill(region, width, height, x, y);
}

uint8_t* Segment_FillHoles(uint8_t* mask, int width, int height, int /*a*/, int /*b*/, int /*c*/, int* l, int* t,
                           int* r, int* bottom) {
  const int left = *l;
  const int top = *t;
  const int32_t n = Wrap32Mul(width, height);
  if (mask == nullptr || n < 0) return mask;
  if (!ShouldFillHoles(left, top, *r, *bottom, width, height)) return mask;
  const bool fromTopLeft = left > 0 || top > 0;
  uint8_t* output = FitsSegmentStack(width, height) ? FillFromCorner(mask, width, height, fromTopLeft)
                                                    : FillFromCornerColourwise(mask, width, height, fromTopLeft);
  if (output == nullptr) return mask;
  std::free(mask);
  return output;
}
