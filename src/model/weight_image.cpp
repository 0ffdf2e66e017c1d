#include "model/weight_image.h"

#include <algorithm>
#include <cstring>

#include "engine/frame_intake.h"
#include "image/covered_rect.h"
#include "model/back_projection.h"

namespace {

OT_RECT Intersect(const OT_RECT& a, const OT_RECT& b) {
  return OT_RECT{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                 std::min(a.bottom, b.bottom)};
}

}  // namespace

WeightProjection::WeightProjection(uint8_t* weights, int w, int h, OT_RECT projected, const int (*hist)[32][16],
                                   const uint8_t* y, const uint8_t* cbcr, int lineStep, FrameIntake* intake)
    : weights_(weights),
      w_(w),
      h_(h),
      projected_(projected),
      hist_(hist),
      y_(y),
      cbcr_(cbcr),
      lineStep_(lineStep),
      intake_(intake) {}

void WeightProjection::Require(const OT_RECT& rect) {
  if (IsEmptyRect(rect) || w_ < 1 || h_ < 1) return;
  OT_RECT want;
  if (rect.left >= 0 && rect.right <= w_) {
    want = OT_RECT{rect.left, std::max(rect.top, 0), rect.right, std::min(rect.bottom, h_)};
  } else {
    // Columns outside the row read the neighbouring rows: whole rows over the linear range read.
    const int64_t size = int64_t{w_} * h_;
    const int64_t first = std::max<int64_t>(int64_t{rect.top} * w_ + rect.left, 0);
    const int64_t last = std::min<int64_t>((int64_t{rect.bottom} - 1) * w_ + rect.right, size);
    if (first >= last) return;
    want = OT_RECT{0, static_cast<int32_t>(first / w_), w_, static_cast<int32_t>((last - 1) / w_ + 1)};
  }
  GrowCovered(&ready_, want, [&](const OT_RECT& part) { MakeReady(part); });
}

void WeightProjection::MakeReady(const OT_RECT& part) {
  const OT_RECT inside = Intersect(part, projected_);
  if (IsEmptyRect(inside)) {
    Clear(part);
    return;
  }
  // Whole blocks: the projection rectangle has even edges, so they stay inside it.
  Project(OT_RECT{inside.left & ~1, inside.top & ~1, (inside.right + 1) & ~1, (inside.bottom + 1) & ~1});
  Clear(OT_RECT{part.left, part.top, part.right, inside.top});
  Clear(OT_RECT{part.left, inside.bottom, part.right, part.bottom});
  Clear(OT_RECT{part.left, inside.top, inside.left, inside.bottom});
  Clear(OT_RECT{inside.right, inside.top, part.right, inside.bottom});
}

void WeightProjection::Project(OT_RECT blocks) {
  if (intake_ != nullptr) intake_->TakeBlocks(blocks);
  BackProjectBlocks(hist_, y_, cbcr_, w_, lineStep_, weights_, blocks.left, blocks.top, blocks.right, blocks.bottom);
}

void WeightProjection::Clear(const OT_RECT& part) {
  if (IsEmptyRect(part)) return;
  for (int64_t y = part.top; y < part.bottom; ++y) {
    std::memset(weights_ + y * w_ + part.left, 0, static_cast<size_t>(int64_t{part.right} - part.left));
  }
}
