#include "scene.h"

#include <algorithm>
#include <cstring>

namespace soak {

namespace {

// A saturated red disc (NV21 pairs are V, U) on a grey, chroma-neutral texture: the engine's colour
// model separates the two cleanly, so every phase has a well-defined expected outcome.
constexpr uint8_t kDiscY = 82;
constexpr uint8_t kDiscV = 220;
constexpr uint8_t kDiscU = 96;
constexpr uint8_t kNeutralChroma = 128;

// Checks of 16 pixels, a left-to-right ramp and mild noise from a fixed-seed generator.
uint8_t TextureAt(int x, int y, int width, uint32_t* state) {
  *state = *state * 1664525u + 1013904223u;
  const int noise = static_cast<int>((*state >> 24) & 15) - 8;
  const int base = 96 + ((y / 16 + x / 16) & 1) * 24 + (x * 32) / width;
  return static_cast<uint8_t>(base + noise);
}

}  // namespace

Canvas::Canvas(int width, int height, uint32_t seed)
    : width_(width), height_(height), background_(static_cast<size_t>(width) * height * 3 / 2, kNeutralChroma) {
  uint32_t state = seed * 2654435761u + 12345u;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) background_[static_cast<size_t>(y) * width + x] = TextureAt(x, y, width, &state);
  }
  frame_ = background_;
}

void Canvas::Show(const Disc& d) {
  Restore(painted_);
  painted_ = Box{0, 0, 0, 0};
  if (!d.visible) return;
  painted_ = BoxOf(d);
  Paint(d);
}

Canvas::Box Canvas::BoxOf(const Disc& d) const {
  return Box{std::max(d.cx - d.radius, 0), std::max(d.cy - d.radius, 0), std::min(d.cx + d.radius + 1, width_),
             std::min(d.cy + d.radius + 1, height_)};
}

// A chroma pair covers a 2x2 block, so the chroma part of the box is widened to whole blocks.
void Canvas::Restore(const Box& b) {
  if (b.right <= b.left || b.bottom <= b.top) return;
  for (int y = b.top; y < b.bottom; ++y) {
    const size_t at = static_cast<size_t>(y) * width_ + b.left;
    std::memcpy(&frame_[at], &background_[at], static_cast<size_t>(b.right - b.left));
  }
  const size_t chroma = static_cast<size_t>(width_) * height_;
  const int left = b.left & ~1;
  const int right = std::min((b.right + 1) & ~1, width_);
  for (int row = b.top / 2; row < std::min((b.bottom + 1) / 2, height_ / 2); ++row) {
    const size_t at = chroma + static_cast<size_t>(row) * width_ + left;
    std::memcpy(&frame_[at], &background_[at], static_cast<size_t>(right - left));
  }
}

void Canvas::Paint(const Disc& d) {
  const Box b = BoxOf(d);
  const int r2 = d.radius * d.radius;
  uint8_t* chroma = this->chroma();
  for (int y = b.top; y < b.bottom; ++y) {
    for (int x = b.left; x < b.right; ++x) {
      if ((x - d.cx) * (x - d.cx) + (y - d.cy) * (y - d.cy) > r2) continue;
      frame_[static_cast<size_t>(y) * width_ + x] = kDiscY;
      if (y / 2 >= height_ / 2) continue;
      uint8_t* pair = chroma + static_cast<size_t>(y / 2) * width_ + (x & ~1);
      pair[0] = kDiscV;
      pair[1] = kDiscU;
    }
  }
}

}  // namespace soak
