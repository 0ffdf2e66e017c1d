// Drawing on YUV 4:2:0 pictures: filled and outlined rectangles and a small bitmap font, enough
// to mark boxes and print a frame's number and state on it.
#pragma once

#include <cstdint>
#include <string>

#include "picture.h"

namespace plovix_replay {

struct Yuv {
  uint8_t y;
  uint8_t u;
  uint8_t v;
};

// BT.601, limited range: what players assume for Y4M and camera previews.
Yuv YuvFromRgb(int r, int g, int b);
void RgbFromYuv(int y, int u, int v, uint8_t rgb[3]);

// Fills [x0, x1) x [y0, y1), clipped to the picture. Chroma is set for every 2x2 block the
// rectangle touches.
void FillRect(Picture* p, int x0, int y0, int x1, int y1, Yuv c);
// Outline of [left, right] x [top, bottom] (inclusive), thickness pixels wide, drawn inwards.
void DrawBox(Picture* p, int left, int top, int right, int bottom, int thickness, Yuv c);

constexpr int kGlyphWidth = 5;
constexpr int kGlyphHeight = 7;
// Upper-case letters, digits and " #%(),-./:="; lower case prints as upper case, anything else as
// a blank. Each glyph cell is 6 x 8 pixels at scale 1.
void DrawText(Picture* p, int x, int y, int scale, const std::string& text, Yuv c);
int TextWidth(const std::string& text, int scale);

}  // namespace plovix_replay
