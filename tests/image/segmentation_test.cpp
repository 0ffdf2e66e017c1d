#include "image/segmentation.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "engine/tuning.h"
#include "image/image_state.h"
#include "support/test_support.h"

namespace {

using plovix_test::Frame;
using plovix_test::PaintRect;
using Ints = std::vector<int>;

constexpr int kW = 160, kH = 120;

struct Segmented {
  Segmented(Frame& f, int tx, int ty) {
    g_FF_SEARCH_OFFSET = 5;
    mask = OTKIS_SetDibandSegmentYCC420(f.y.data(), f.uv.data(), kW, kH, kW, tx, ty, &l, &t, &r, &b);
  }
  ~Segmented() { std::free(mask); }
  // Empty when the mask is 255 exactly where `inside` holds and 0 elsewhere, else the first miss.
  std::string FirstMismatch(const std::function<bool(int, int)>& inside) const {
    for (int i = 0; i < kW * kH; ++i) {
      if (mask[i] != (inside(i % kW, i / kW) ? 255 : 0)) return std::to_string(i % kW) + "," + std::to_string(i / kW);
    }
    return "";
  }
  uint8_t* mask = nullptr;
  int l = -7, t = -7, r = -7, b = -7;
};

// A red square [left, left + 40) x [60, 100) with a grey 12x12 hole, on a textured grey scene.
Frame SquareWithHole(int left) {
  Frame f = plovix_test::MakeTexturedFrame(kW, kH, 7);
  PaintRect(&f, left, 60, left + 40, 100, 80, 90, 200);
  PaintRect(&f, left + 14, 74, left + 26, 86, 200, 128, 128);
  return f;
}

bool InSquare(int left, int x, int y) { return x >= left && x < left + 40 && y >= 60 && y < 100; }
bool InHole(int left, int x, int y) { return x >= left + 14 && x < left + 26 && y >= 74 && y < 86; }

TEST(Segmentation, ObjectAwayFromTheBordersHasItsHoleClosed) {
  Frame f = SquareWithHole(100);
  Segmented s(f, 107, 80);
  EXPECT_EQ((Ints{s.l, s.t, s.r, s.b}), (Ints{96, 56, 143, 103}));
  EXPECT_EQ(s.FirstMismatch([](int x, int y) { return InSquare(100, x, y); }), "");
  EXPECT_EQ(m_nLineStep, kW);
  EXPECT_EQ(m_FF.image420, nullptr);
  EXPECT_EQ(m_FF.mask, nullptr);
}

TEST(Segmentation, ObjectNearTheLeftBorderKeepsItsHoleOpen) {
  Frame f = SquareWithHole(2);
  Segmented s(f, 9, 80);
  EXPECT_EQ((Ints{s.l, s.t, s.r, s.b}), (Ints{0, 56, 45, 103}));
  EXPECT_EQ(s.FirstMismatch([](int x, int y) { return InSquare(2, x, y) && !InHole(2, x, y); }), "");
}

// Touch at (2, 2): the seeds at negative coordinates do nothing; (7, 2), (7, 7) and (2, 7) each
// fill the 2x2 patch of their own colour.
TEST(Segmentation, SeedsOutsideTheImageAreIgnored) {
  Frame f = plovix_test::MakeUniformFrame(kW, kH, 128, 128, 128);
  for (int i = 0; i < 4; ++i) {
    const int x = 2 + 4 * (i & 1), y = 2 + 2 * (i & 2);
    PaintRect(&f, x, y, x + 2, y + 2, static_cast<uint8_t>(20 + 60 * i), 40, 220);
  }
  Segmented s(f, 2, 2);
  EXPECT_EQ((Ints{s.l, s.t, s.r, s.b}), (Ints{0, 0, 11, 11}));
  EXPECT_EQ(s.FirstMismatch([](int x, int y) { return x < 8 && y < 8 && x % 4 >= 2 && y % 4 >= 2; }), "");
}

TEST(Segmentation, TouchWithAllSeedsOutsideGivesAnEmptyMaskAndInvertedRect) {
  Frame f = plovix_test::MakeUniformFrame(kW, kH, 60, 100, 150);
  Segmented s(f, -20, 500);
  ASSERT_NE(s.mask, nullptr);
  EXPECT_EQ((Ints{s.l, s.t, s.r, s.b}), (Ints{99995, 99995, 4, 4}));
  EXPECT_EQ(s.FirstMismatch([](int, int) { return false; }), "");
}

}  // namespace
