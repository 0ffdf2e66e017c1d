// The weight image as the measurements read it. An image handed in from outside is complete; the
// tracking step's own is projected on demand: only the blocks inside its projection rectangle can
// hold weights, and a measurement about to read a rectangle first has that rectangle made ready
// (its blocks inside the projection rectangle projected, its other pixels cleared). A frame thus
// projects, and takes in, only around what the searches and measurements read.
#pragma once

#include <cstdint>

#include "image/ot_types.h"

class FrameIntake;

// Projects a weight image as its readers ask for it. What is ready is one rectangle, grown to
// each request.
class WeightProjection {
 public:
  // weights: w x h, row stride w, contents undefined. projected: the rectangle of 2x2 blocks the
  // step projects (even edges, inside the image; may be empty). The model and the working image
  // (line step lineStep) are read as the back projection reads them; with an intake, each block's
  // pixels are taken in first.
  WeightProjection(uint8_t* weights, int w, int h, OT_RECT projected, const int (*hist)[32][16], const uint8_t* y,
                   const uint8_t* cbcr, int lineStep, FrameIntake* intake);

  // Makes every pixel a read of rect may touch hold its final value: rect's pixels, and for a rect
  // sticking out sideways the neighbouring rows its linear-index reads reach.
  void Require(const OT_RECT& rect);

 private:
  void MakeReady(const OT_RECT& part);
  void Project(OT_RECT blocks);
  void Clear(const OT_RECT& part);

  uint8_t* weights_;
  int w_;
  int h_;
  OT_RECT projected_;
  const int (*hist_)[32][16];
  const uint8_t* y_;
  const uint8_t* cbcr_;
  int lineStep_;
  FrameIntake* intake_;
  OT_RECT ready_{0, 0, 0, 0};
};

// A weight image (row stride w) and, for the tracking step's own, its projection.
struct WeightImage {
  uint8_t* px;
  int w;
  int h;
  WeightProjection* projection = nullptr;

  // Call before reading rect.
  void Require(const OT_RECT& rect) const {
    if (projection != nullptr) projection->Require(rect);
  }
};
