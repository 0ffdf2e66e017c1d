// Nearest-neighbour resizing, so a clip of any size can be replayed at a phone's preview size.
#pragma once

#include "picture.h"

namespace plovix_replay {

// Output pixel (x, y) takes source pixel (x * srcW / dstW, y * srcH / dstH); chroma planes alike
// at their own sizes.
void ScaleNearest(const Picture& src, int width, int height, Picture* dst);

// Box-filter reduction (each output pixel the rounded mean of the source pixels it covers), for
// thumbnails; width and height must not exceed the source's.
void ScaleArea(const Picture& src, int width, int height, Picture* dst);

}  // namespace plovix_replay
