#include "engine/coordinates.h"

#include <algorithm>

#include "engine/plovix_engine.h"
#include "platform/arith.h"
#include "platform/log.h"

namespace {

constexpr float kFocusSpan = 2000.0f;
constexpr float kFocusOrigin = -1000.0f;

// Clamps one axis of a box into [0, size - 1]: the low edge first, then the high edge.
void ClampAxis(int* low, int* high, int size, int extent) {
  if (*low <= 0) {
    *low = 0;
    *high = extent;
  }
  const int last = Wrap32Sub(size, 1);
  if (*high >= last) {
    *high = last;
    *low = Wrap32Sub(last, extent);
  }
}

}  // namespace

int PixelToFocusUnits(int v, int size) {
  const float scaled = static_cast<float>(v) / static_cast<float>(size) * kFocusSpan;
  return TruncToInt(scaled + kFocusOrigin);
}

void ConvertPixelCoordinateToAndroidSystem(int& left, int& top, int& right, int& bottom, int width, int height) {
  left = PixelToFocusUnits(left, width);
  right = PixelToFocusUnits(right, width);
  top = PixelToFocusUnits(top, height);
  bottom = PixelToFocusUnits(bottom, height);
}

int PlovixEngine::ValidateRect(int* left, int* right, int* top, int* bottom, int width, int height, int maxSize) {
  const bool empty = *right <= *left || *bottom <= *top;
  const int boxW = std::min(Wrap32Sub(*right, *left), maxSize);
  const int boxH = std::min(Wrap32Sub(*bottom, *top), maxSize);
  // Both axes see the same rule; the x and y clamps never interact.
  ClampAxis(left, right, width, boxW);
  ClampAxis(top, bottom, height, boxH);
  if (empty) {
    PLOVIX_LOGE("PlovixPlugin ValidateRect failed!!");
    return -1;
  }
  return 0;
}
