#include "image/segmentation.h"

#include <cstdlib>
#include <functional>

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

// A red square [left, left + 40) x [60, 100) with a grey 12x12 hole, on a textured grey scene: the
// hole is closed only away from the borders.
TEST(Segmentation, HoleIsClosedOnlyAwayFromTheBorders) {
  for (auto [left, box] : {std::pair{100, Ints{96, 56, 143, 103}}, {2, Ints{0, 56, 45, 103}}}) {
    Frame f = plovix_test::MakeTexturedFrame(kW, kH, 7);
    PaintRect(&f, left, 60, left + 40, 100, 80, 90, 200);
    PaintRect(&f, left + 14, 74, left + 26, 86, 200, 128, 128);
    Segmented s(f, left + 7, 80);
    EXPECT_EQ((Ints{s.l, s.t, s.r, s.b}), box);
    const auto masked = [l = left](int x, int y) {
      const bool hole = x >= l + 14 && x < l + 26 && y >= 74 && y < 86;
      return x >= l && x < l + 40 && y >= 60 && y < 100 && (l > 2 || !hole);
    };
    EXPECT_EQ(s.FirstMismatch(masked), "");
  }
}

TEST(Segmentation, TouchWithAllSeedsOutsideGivesAnEmptyMaskAndInvertedRect) {
  Frame f = plovix_test::MakeUniformFrame(kW, kH, 60, 100, 150);
  Segmented s(f, -20, 500);
  ASSERT_NE(s.mask, nullptr);
  EXPECT_EQ((Ints{s.l, s.t, s.r, s.b}), (Ints{99995, 99995, 4, 4}));
  EXPECT_EQ(s.FirstMismatch([](int, int) { return false; }), "");
}

}  // namespace
