// A synthetic preview scene for the stream fuzzer: a noisy background and a few flat-coloured
// rectangles and discs that move a little every frame, painted into host frames of any size.
#pragma once

#include <cstdint>
#include <vector>

#include "support/fuzz_support.h"

namespace plovix_fuzz {

// Positions and sizes are in 1/4096 of the frame, so a scene survives a change of frame size.
constexpr int32_t kSceneUnit = 4096;

struct Shape {
  bool disc;
  uint8_t y, c0, c1;
  int32_t cx, cy;  // centre, 1/4096 of the width and height
  int32_t size;    // side or diameter, 1/4096 of the smaller frame side
  int32_t vx, vy;  // motion per frame, 1/4096 of the frame
};

struct Scene {
  uint8_t y = 100, c0 = 128, c1 = 128;  // background
  uint8_t noise = 4;                    // luma noise amplitude
  uint32_t seed = 1;
  bool hidden = false;  // only the background is painted
  std::vector<Shape> shapes;

  // One disc in the middle, drifting right and down.
  static Scene Default();
  // Background and up to four shapes from the input.
  static Scene Read(ByteReader* in);

  void Advance();
  // Centre of shape i (modulo the count) in frame pixels; the frame centre without shapes.
  void ShapeCentre(size_t i, int width, int height, int* x, int* y) const;
};

// Host planes of one frame: width x height luma bytes and height / 2 rows of width chroma bytes,
// each allocated at exactly that size (0 bytes for a zero or negative side).
struct HostFrame {
  HostFrame(int width, int height);
  int width, height;
  HeapBytes y, uv;
};

void PaintScene(const Scene& scene, HostFrame* frame);

}  // namespace plovix_fuzz
