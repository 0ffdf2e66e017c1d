// Column prefix sums of a weight image: the weight sum and first moments of a rectangle inside the
// image from two rows of sums instead of every pixel. For searches that sum many large,
// overlapping windows of one weight image.
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "model/region.h"

class WeightColumnSums {
 public:
  // Builds the sums for a w x h weight image (row stride w). When they cannot be built (allocation
  // failure, or an image too tall for 32-bit column sums) every query sums the pixels instead.
  WeightColumnSums(const uint8_t* weights, int w, int h);
  ~WeightColumnSums();
  WeightColumnSums(const WeightColumnSums&) = delete;
  WeightColumnSums& operator=(const WeightColumnSums&) = delete;

  // Exactly MomentsInRect(weights, w, h, rect); a rectangle reaching outside the image is summed
  // pixel by pixel.
  WeightMoments Moments(OT_RECT rect) const;

 private:
  const uint8_t* weights_;
  int w_;
  int h_;
  // Row y holds, per column, the sum over the rows above y of weight and of y * weight.
  uint32_t* sums_;    // (h + 1) x w; null when not built
  uint32_t* ySums_;   // (h + 1) x w
};
