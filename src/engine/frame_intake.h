// Takes one frame into the working image part by part. A step about to read part of the working
// image asks for it first, and only the parts some step asks for are decimated: while an object is
// tracked that is the neighbourhood of the object, not the whole frame. What has been taken in is
// one rectangle per plane, grown to cover each request.
#pragma once

#include <cstdint>

#include "image/ot_types.h"

class FrameIntake {
 public:
  // Planes as the record holds them (rows srcW bytes apart); work is the w x h working image, or
  // null, in which case nothing is ever taken in. Nothing is taken in yet.
  FrameIntake(const uint8_t* srcY, const uint8_t* srcUV, int srcW, uint8_t* work, int w, int h);

  // The whole working image, as DecimateFrame fills it.
  void TakeAll();
  // The luma of rect, clipped to the image.
  void TakeLuma(OT_RECT rect);
  // What the back projection reads for the 2x2 blocks of rect (even edges, inside the image): their
  // luma, and for each the chroma pair (row / 2) x w + column bytes into the chroma, which for an
  // odd width is not where the working image packed that block's pair.
  void TakeBlocks(OT_RECT rect);

 private:
  void GrowLuma(OT_RECT want);
  void GrowChroma(OT_RECT pairs);

  const uint8_t* srcY_;
  const uint8_t* srcUV_;
  int srcW_;
  uint8_t* work_;
  int w_;
  int h_;
  OT_RECT luma_{0, 0, 0, 0};    // taken in: rows and columns
  OT_RECT chroma_{0, 0, 0, 0};  // taken in: packed chroma rows and pairs
};
