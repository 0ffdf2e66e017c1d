#include "contact_sheet.h"

#include <algorithm>

#include "annotate.h"
#include "drawing.h"
#include "scaler.h"

namespace plovix_replay {
namespace {

constexpr int kColumns = 6;
constexpr int kGap = 4;
constexpr uint8_t kBackground = 32;

RgbImage ToRgb(const Picture& p) {
  RgbImage out;
  out.width = p.width;
  out.height = p.height;
  out.pixels.resize(static_cast<size_t>(p.width) * p.height * 3);
  const int cw = p.ChromaWidth();
  for (int y = 0; y < p.height; ++y) {
    for (int x = 0; x < p.width; ++x) {
      const size_t c = static_cast<size_t>(y / 2) * cw + x / 2;
      RgbFromYuv(p.y[static_cast<size_t>(y) * p.width + x], p.u[c], p.v[c],
                 &out.pixels[(static_cast<size_t>(y) * p.width + x) * 3]);
    }
  }
  return out;
}

}  // namespace

ContactSheet::ContactSheet(int every, int thumbWidth)
    : every_(std::max(1, every)), thumbWidth_(std::max(16, thumbWidth)) {}

bool ContactSheet::OnFrame(const FrameResult& result, const Picture& fed, std::string* /*error*/) {
  if (result.index % every_ != 0) return true;
  if (thumbHeight_ == 0) {
    thumbWidth_ = std::min(thumbWidth_, fed.width);
    thumbHeight_ =
        std::max(1, static_cast<int>(static_cast<long long>(fed.height) * thumbWidth_ / fed.width));
  }
  marked_ = fed;
  DrawMarks(result, &marked_);
  // Later frames of another size are squeezed into the first one's cell.
  if (fed.width >= thumbWidth_ && fed.height >= thumbHeight_) {
    ScaleArea(marked_, thumbWidth_, thumbHeight_, &small_);
  } else {
    ScaleNearest(marked_, thumbWidth_, thumbHeight_, &small_);
  }
  DrawBanner(result, 1, false, &small_);
  thumbs_.push_back(ToRgb(small_));
  return true;
}

RgbImage ContactSheet::Compose() const {
  const int n = static_cast<int>(thumbs_.size());
  const int columns = std::min(kColumns, n);
  const int rows = (n + columns - 1) / columns;
  RgbImage sheet;
  sheet.width = kGap + columns * (thumbWidth_ + kGap);
  sheet.height = kGap + rows * (thumbHeight_ + kGap);
  sheet.pixels.assign(static_cast<size_t>(sheet.width) * sheet.height * 3, kBackground);
  for (int i = 0; i < n; ++i) {
    const int x0 = kGap + (i % columns) * (thumbWidth_ + kGap);
    const int y0 = kGap + (i / columns) * (thumbHeight_ + kGap);
    const RgbImage& t = thumbs_[i];
    for (int y = 0; y < t.height; ++y) {
      std::copy_n(t.pixels.begin() + static_cast<size_t>(y) * t.width * 3, t.width * 3,
                  sheet.pixels.begin() + (static_cast<size_t>(y0 + y) * sheet.width + x0) * 3);
    }
  }
  return sheet;
}

}  // namespace plovix_replay
