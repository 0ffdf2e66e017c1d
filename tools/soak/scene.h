// The soak's picture: a fixed textured background per preview size and one coloured disc on it.
// Moving the disc repaints only its old and new boxes, so a frame costs a few thousand byte writes
// and the run's time goes to the engine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace soak {

// Preview pixels. An invisible disc is not drawn.
struct Disc {
  int cx;
  int cy;
  int radius;
  bool visible;
};

// One preview size in NV21 layout: a luma plane, then height / 2 rows of interleaved V/U pairs.
// The frame always equals the background with at most the last shown disc on it.
class Canvas {
 public:
  Canvas(int width, int height, uint32_t seed);

  // Replaces the disc shown before (if any) with d.
  void Show(const Disc& d);

  int width() const { return width_; }
  int height() const { return height_; }
  uint8_t* luma() { return frame_.data(); }
  uint8_t* chroma() { return frame_.data() + static_cast<size_t>(width_) * height_; }
  const std::vector<uint8_t>& frame() const { return frame_; }

 private:
  // Pixels [left, right) x [top, bottom), already clipped to the frame.
  struct Box {
    int left, top, right, bottom;
  };

  Box BoxOf(const Disc& d) const;
  void Restore(const Box& b);
  void Paint(const Disc& d);

  int width_;
  int height_;
  std::vector<uint8_t> background_;
  std::vector<uint8_t> frame_;
  Box painted_{0, 0, 0, 0};
};

}  // namespace soak
