#include "image/segmentation.h"

#include <algorithm>

#include "engine/tuning.h"
#include "image/flood_fill.h"
#include "image/image_state.h"
#include "image/point_array.h"
#include "image/seed_fill.h"
#include "platform/arith.h"

namespace {

// Only the touch point's own fill uses the looser threshold.
constexpr int kTouchThreshold = 25;
constexpr int kNeighbourThreshold = 20;
constexpr int kSeedCount = 9;
constexpr int kClosedRectMargin = 4;
// Start of the bounding-box search; an empty mask keeps it and yields an inverted rectangle.
constexpr int kNoMinimum = 99999;

struct SeedOffset {
  int dx;
  int dy;
};

// In units of the search offset, in the order the fills run: the touch, then clockwise from the left.
constexpr SeedOffset kSeedOffsets[kSeedCount] = {{0, 0}, {-1, 0}, {-1, -1}, {0, -1}, {1, -1},
                                                 {1, 0}, {1, 1},  {0, 1},   {-1, 1}};

tagOT_POINT SeedAt(int tx, int ty, int offset, const SeedOffset& step) {
  return tagOT_POINT{Wrap32Add(tx, Wrap32Mul(step.dx, offset)), Wrap32Add(ty, Wrap32Mul(step.dy, offset))};
}

void RunNineFills(int tx, int ty) {
  const int offset = g_FF_SEARCH_OFFSET;
  for (int i = 0; i < kSeedCount; ++i) {
    const int threshold = (i == 0) ? kTouchThreshold : kNeighbourThreshold;
    CFFColor_FloodFillYCC420(&m_FF, SeedAt(tx, ty, offset, kSeedOffsets[i]), threshold, false);
  }
}

void ReleaseFloodFillImages() {
  CDibY_delCDibY(m_FF.mask);
  CDibYCC420_delCDibYCC420(m_FF.image420);
  m_FF.mask = nullptr;
  m_FF.image420 = nullptr;
}

// Hands the mask's pixel block to the caller and drops the rest of the fill state.
uint8_t* TakeMaskPixels() {
  uint8_t* pixels = m_FF.mask->pixels;
  m_FF.mask->pixels = nullptr;
  ReleaseFloodFillImages();
  return pixels;
}

}  // namespace

uint8_t* OTKIS_SetDibandSegmentYCC420(uint8_t* y, uint8_t* cbcr, int width, int height, int lineStep, int tx, int ty,
                                      int* l, int* t, int* r, int* b) {
  uint8_t* mask = Segment_Original(y, cbcr, width, height, lineStep, tx, ty, l, t, r, b);
  if (mask == nullptr) return nullptr;
  return Segment_FillHoles(mask, width, height, 0, 0, 0, l, t, r, b);
}

uint8_t* Segment_Original(uint8_t* y, uint8_t* cbcr, int width, int height, int lineStep, int tx, int ty, int* l,
                          int* t, int* r, int* b) {
  m_nLineStep = lineStep;
  SetOriginalImageYCC420(&m_FF, y, cbcr, width, height, lineStep);
  if (m_FF.image420 == nullptr || m_FF.image420->y == nullptr || m_FF.image420->cbcr == nullptr) {
    ReleaseFloodFillImages();
    return nullptr;
  }
  SetMaskDibYCC420(&m_FF, nullptr);
  if (m_FF.mask == nullptr || m_FF.mask->pixels == nullptr) {
    ReleaseFloodFillImages();
    return nullptr;
  }
  RunNineFills(tx, ty);
  const OT_RECT rect = GetClosedRect(m_FF.mask);
  *l = rect.left;
  *t = rect.top;
  *r = rect.right;
  *b = rect.bottom;
  return TakeMaskPixels();
}

// Clipped at width and height, not width - 1 and height - 1; hole filling depends on that.
OT_RECT GetClosedRect(tag_CDibY* mask) {
  int minX = kNoMinimum;
  int minY = kNoMinimum;
  int maxX = 0;
  int maxY = 0;
  for (int y = 0; mask->pixels != nullptr && y < mask->height; ++y) {
    const uint8_t* row = mask->pixels + static_cast<int64_t>(mask->lineStep) * y;
    for (int x = 0; x < mask->width; ++x) {
      if (row[x] == 0) continue;
      minX = std::min(minX, x);
      maxX = std::max(maxX, x);
      minY = std::min(minY, y);
      maxY = std::max(maxY, y);
    }
  }
  const OT_RECT found = {minX - kClosedRectMargin, minY - kClosedRectMargin, Wrap32Add(maxX, kClosedRectMargin),
                         Wrap32Add(maxY, kClosedRectMargin)};
  return AndRect(found, OT_RECT{0, 0, mask->width, mask->height});
}
