#include "drawing.h"

#include <algorithm>
#include <cctype>

namespace plovix_replay {
namespace {

constexpr int kCellWidth = kGlyphWidth + 1;

struct Glyph {
  char c;
  uint8_t columns[kGlyphWidth];  // bit 0 is the top row
};

constexpr Glyph kFont[] = {
    {'#', {0x14, 0x7F, 0x14, 0x7F, 0x14}}, {'%', {0x23, 0x13, 0x08, 0x64, 0x62}},
    {'(', {0x00, 0x1C, 0x22, 0x41, 0x00}}, {')', {0x00, 0x41, 0x22, 0x1C, 0x00}},
    {',', {0x00, 0x50, 0x30, 0x00, 0x00}}, {'-', {0x08, 0x08, 0x08, 0x08, 0x08}},
    {'.', {0x00, 0x60, 0x60, 0x00, 0x00}}, {'/', {0x20, 0x10, 0x08, 0x04, 0x02}},
    {'0', {0x3E, 0x51, 0x49, 0x45, 0x3E}}, {'1', {0x00, 0x42, 0x7F, 0x40, 0x00}},
    {'2', {0x42, 0x61, 0x51, 0x49, 0x46}}, {'3', {0x21, 0x41, 0x45, 0x4B, 0x31}},
    {'4', {0x18, 0x14, 0x12, 0x7F, 0x10}}, {'5', {0x27, 0x45, 0x45, 0x45, 0x39}},
    {'6', {0x3C, 0x4A, 0x49, 0x49, 0x30}}, {'7', {0x01, 0x71, 0x09, 0x05, 0x03}},
    {'8', {0x36, 0x49, 0x49, 0x49, 0x36}}, {'9', {0x06, 0x49, 0x49, 0x29, 0x1E}},
    {':', {0x00, 0x36, 0x36, 0x00, 0x00}}, {'=', {0x14, 0x14, 0x14, 0x14, 0x14}},
    {'A', {0x7E, 0x11, 0x11, 0x11, 0x7E}}, {'B', {0x7F, 0x49, 0x49, 0x49, 0x36}},
    {'C', {0x3E, 0x41, 0x41, 0x41, 0x22}}, {'D', {0x7F, 0x41, 0x41, 0x22, 0x1C}},
    {'E', {0x7F, 0x49, 0x49, 0x49, 0x41}}, {'F', {0x7F, 0x09, 0x09, 0x01, 0x01}},
    {'G', {0x3E, 0x41, 0x41, 0x51, 0x32}}, {'H', {0x7F, 0x08, 0x08, 0x08, 0x7F}},
    {'I', {0x00, 0x41, 0x7F, 0x41, 0x00}}, {'J', {0x20, 0x40, 0x41, 0x3F, 0x01}},
    {'K', {0x7F, 0x08, 0x14, 0x22, 0x41}}, {'L', {0x7F, 0x40, 0x40, 0x40, 0x40}},
    {'M', {0x7F, 0x02, 0x04, 0x02, 0x7F}}, {'N', {0x7F, 0x04, 0x08, 0x10, 0x7F}},
    {'O', {0x3E, 0x41, 0x41, 0x41, 0x3E}}, {'P', {0x7F, 0x09, 0x09, 0x09, 0x06}},
    {'Q', {0x3E, 0x41, 0x51, 0x21, 0x5E}}, {'R', {0x7F, 0x09, 0x19, 0x29, 0x46}},
    {'S', {0x46, 0x49, 0x49, 0x49, 0x31}}, {'T', {0x01, 0x01, 0x7F, 0x01, 0x01}},
    {'U', {0x3F, 0x40, 0x40, 0x40, 0x3F}}, {'V', {0x1F, 0x20, 0x40, 0x20, 0x1F}},
    {'W', {0x7F, 0x20, 0x18, 0x20, 0x7F}}, {'X', {0x63, 0x14, 0x08, 0x14, 0x63}},
    {'Y', {0x03, 0x04, 0x78, 0x04, 0x03}}, {'Z', {0x61, 0x51, 0x49, 0x45, 0x43}},
};

const Glyph* FindGlyph(char c) {
  const char upper = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  for (const Glyph& g : kFont) {
    if (g.c == upper) return &g;
  }
  return nullptr;
}

uint8_t ClampByte(int v) { return static_cast<uint8_t>(std::clamp(v, 0, 255)); }

}  // namespace

Yuv YuvFromRgb(int r, int g, int b) {
  // Fixed-point BT.601 with rounding (coefficients scaled by 256).
  const int y = ((66 * r + 129 * g + 25 * b + 128) >> 8) + 16;
  const int u = ((-38 * r - 74 * g + 112 * b + 128) >> 8) + 128;
  const int v = ((112 * r - 94 * g - 18 * b + 128) >> 8) + 128;
  return {ClampByte(y), ClampByte(u), ClampByte(v)};
}

void RgbFromYuv(int y, int u, int v, uint8_t rgb[3]) {
  const int c = 298 * (y - 16);
  const int d = u - 128;
  const int e = v - 128;
  rgb[0] = ClampByte((c + 409 * e + 128) >> 8);
  rgb[1] = ClampByte((c - 100 * d - 208 * e + 128) >> 8);
  rgb[2] = ClampByte((c + 516 * d + 128) >> 8);
}

void FillRect(Picture* p, int x0, int y0, int x1, int y1, Yuv c) {
  x0 = std::max(x0, 0);
  y0 = std::max(y0, 0);
  x1 = std::min(x1, p->width);
  y1 = std::min(y1, p->height);
  if (x0 >= x1 || y0 >= y1) return;
  for (int y = y0; y < y1; ++y) {
    std::fill_n(p->y.begin() + static_cast<size_t>(y) * p->width + x0, x1 - x0, c.y);
  }
  const int cw = p->ChromaWidth();
  for (int cy = y0 / 2; cy <= (y1 - 1) / 2; ++cy) {
    const size_t row = static_cast<size_t>(cy) * cw;
    std::fill_n(p->u.begin() + row + x0 / 2, (x1 - 1) / 2 - x0 / 2 + 1, c.u);
    std::fill_n(p->v.begin() + row + x0 / 2, (x1 - 1) / 2 - x0 / 2 + 1, c.v);
  }
}

void DrawBox(Picture* p, int left, int top, int right, int bottom, int thickness, Yuv c) {
  FillRect(p, left, top, right + 1, top + thickness, c);
  FillRect(p, left, bottom + 1 - thickness, right + 1, bottom + 1, c);
  FillRect(p, left, top, left + thickness, bottom + 1, c);
  FillRect(p, right + 1 - thickness, top, right + 1, bottom + 1, c);
}

void DrawText(Picture* p, int x, int y, int scale, const std::string& text, Yuv c) {
  for (size_t i = 0; i < text.size(); ++i) {
    const Glyph* g = FindGlyph(text[i]);
    if (g == nullptr) continue;
    const int gx = x + static_cast<int>(i) * kCellWidth * scale;
    for (int col = 0; col < kGlyphWidth; ++col) {
      for (int row = 0; row < kGlyphHeight; ++row) {
        if ((g->columns[col] >> row) & 1) {
          FillRect(p, gx + col * scale, y + row * scale, gx + (col + 1) * scale,
                   y + (row + 1) * scale, c);
        }
      }
    }
  }
}

int TextWidth(const std::string& text, int scale) {
  return static_cast<int>(text.size()) * kCellWidth * scale;
}

}  // namespace plovix_replay
