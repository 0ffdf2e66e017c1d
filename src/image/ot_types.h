// Rectangles and points shared by every subsystem, in working-image pixels unless stated.
#pragma once

#include <cstdint>

// left, top, right, bottom; right and bottom exclusive unless a function says inclusive.
struct OT_RECT {
  int32_t left;
  int32_t top;
  int32_t right;
  int32_t bottom;
};

struct tagOT_POINT {
  int32_t x;
  int32_t y;
};
