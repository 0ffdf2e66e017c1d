// Marks a frame with what the engine reported: the measured box, the predicted box, the frame
// number and the state, and a cross where a touch was made.
#pragma once

#include "picture.h"
#include "session.h"

namespace plovix_replay {

// A box in pixels of a width x height frame, from focus units (inclusive edges).
struct PixelBox {
  int left;
  int top;
  int right;
  int bottom;
};
PixelBox BoxToPixels(int left, int right, int top, int bottom, int width, int height);

// True when the record's boxes are meaningful: a processed frame in state 2 or 3.
bool HasBox(const FrameResult& r);
const char* StateName(const FrameResult& r);

// The boxes (predicted under measured) and the touch cross, line widths following the size.
void DrawMarks(const FrameResult& r, Picture* p);
// Frame number and state in the top-left corner, optionally with a colour legend of the boxes.
void DrawBanner(const FrameResult& r, int scale, bool legend, Picture* p);
// Copies fed into out and draws marks and banner at a text size that suits the frame.
void AnnotateFrame(const FrameResult& r, const Picture& fed, Picture* out);

}  // namespace plovix_replay
