#include "engine/frame_intake.h"

#include <algorithm>

#include "engine/working_image.h"
#include "image/covered_rect.h"

FrameIntake::FrameIntake(const uint8_t* srcY, const uint8_t* srcUV, int srcW, uint8_t* work, int w, int h)
    : srcY_(srcY), srcUV_(srcUV), srcW_(srcW), work_(work), w_(w), h_(h) {}

void FrameIntake::TakeAll() {
  GrowLuma(OT_RECT{0, 0, w_, h_});
  GrowChroma(OT_RECT{0, 0, w_ / 2, h_ / 2});
}

void FrameIntake::TakeLuma(OT_RECT rect) {
  GrowLuma(OT_RECT{std::max(rect.left, 0), std::max(rect.top, 0), std::min(rect.right, w_),
                   std::min(rect.bottom, h_)});
}

void FrameIntake::TakeBlocks(OT_RECT rect) {
  if (IsEmptyRect(rect)) return;
  TakeLuma(rect);
  // Chroma row r / 2 is read at offset (r / 2) x w; the packed rows are 2 x (w / 2) bytes long, so
  // for an odd width the reads drift one byte per row against the packing and may straddle rows.
  const int64_t packedRow = 2 * (w_ / 2);
  if (packedRow < 1) return;
  OT_RECT pairs{w_ / 2, h_ / 2, 0, 0};
  for (int64_t q = rect.top >> 1; q <= (int64_t{rect.bottom} - 1) >> 1; ++q) {
    const int64_t first = q * w_ + rect.left;
    const int64_t last = q * w_ + rect.right - 1;
    const int32_t firstRow = static_cast<int32_t>(first / packedRow);
    const int32_t lastRow = static_cast<int32_t>(last / packedRow);
    const bool oneRow = firstRow == lastRow;
    pairs.top = std::min(pairs.top, firstRow);
    pairs.bottom = std::max(pairs.bottom, lastRow + 1);
    pairs.left = std::min(pairs.left, oneRow ? static_cast<int32_t>(first % packedRow / 2) : 0);
    pairs.right = std::max(pairs.right, oneRow ? static_cast<int32_t>(last % packedRow / 2 + 1) : w_ / 2);
  }
  // Reads past the packed rows land in the buffer's zero tail, which no frame writes.
  pairs.bottom = std::min(pairs.bottom, h_ / 2);
  GrowChroma(pairs);
}

void FrameIntake::GrowLuma(OT_RECT want) {
  if (work_ == nullptr || w_ < 1 || h_ < 1) return;
  GrowCovered(&luma_, want, [&](const OT_RECT& part) { DecimateLuma(srcY_, srcW_, work_, w_, part); });
}

void FrameIntake::GrowChroma(OT_RECT pairs) {
  if (work_ == nullptr || w_ < 2 || h_ < 2) return;
  GrowCovered(&chroma_, pairs, [&](const OT_RECT& part) { DecimateChroma(srcUV_, srcW_, work_, w_, h_, part); });
}
