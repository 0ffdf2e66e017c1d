// Synthetic preview frames in NV21 layout (luma plane, then V,U pairs at half resolution): a
// textured background with sensor noise and muted patches, and a patterned orange disc circling
// the frame centre at a constant speed, so that the last frame of a lap leads smoothly into the first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace plovix_bench {

struct Nv21Frame {
  int width = 0;
  int height = 0;
  std::vector<uint8_t> data;  // width x height luma bytes, then height / 2 rows of width V,U bytes

  uint8_t* y() { return data.data(); }
  uint8_t* vu() { return data.data() + static_cast<size_t>(width) * height; }
  const uint8_t* y() const { return data.data(); }
  const uint8_t* vu() const { return data.data() + static_cast<size_t>(width) * height; }
};

struct Disc {
  double x;
  double y;
  double r;
};

// The disc's colour as NV21 samples (its luma varies about kDiscY).
constexpr uint8_t kDiscY = 129;
constexpr uint8_t kDiscV = 204;
constexpr uint8_t kDiscU = 69;

class Scene {
 public:
  // cycleFrames: frames per lap of the disc; the disc moves height / 90 pixels a frame unless the
  // lap would not fit in the frame, in which case the circle is as large as fits.
  Scene(int width, int height, int cycleFrames);

  int width() const { return width_; }
  int height() const { return height_; }
  int cycleFrames() const { return cycle_; }

  // Where the disc is in frame pixels on frame i of the lap (i taken modulo the lap).
  Disc DiscAt(int i) const;

  // Renders frame i: the background with frame i's sensor noise and, with the disc, the disc.
  // Frames with different i differ in every row even without the disc.
  void Render(int i, bool withDisc, Nv21Frame* out) const;

 private:
  void PaintDisc(const Disc& d, Nv21Frame* out) const;

  int width_;
  int height_;
  int cycle_;
  double orbit_;
  Nv21Frame world_;  // the background without noise
};

// The disc's centre in focus units (-1000..1000 over the frame), as a host passes a touch.
int FocusUnits(double pixel, int size);

}  // namespace plovix_bench
