#include "engine/coordinates.h"

#include "engine/plovix_engine.h"
#include "support/test_support.h"

TEST(Coordinates, ConvertsEachAxisWithItsOwnSizeTruncatingTowardZero) {
  int left = 0, top = 540, right = 1920, bottom = 1080;
  ConvertPixelCoordinateToAndroidSystem(left, top, right, bottom, 1920, 1080);
  EXPECT_EQ((std::array<int, 4>{-1000, 0, 1000, 1000}), (std::array<int, 4>{left, top, right, bottom}));
  left = 318, top = 294, right = 450, bottom = 426;
  ConvertPixelCoordinateToAndroidSystem(left, top, right, bottom, 1280, 720);
  EXPECT_EQ((std::array<int, 4>{-503, -183, -296, 183}), (std::array<int, 4>{left, top, right, bottom}));
}

TEST(Coordinates, ValidateRectClampsOnlyTheEdgesItCrosses) {
  using Edges5 = std::array<int, 5>;
  // In: left, right, top, bottom, maxSize (in 480x270); want: left, right, top, bottom, result.
  for (auto [name, in, want] : {
           std::tuple{"left edge keeps the width", Edges5{-10, 30, 50, 90, 100}, Edges5{0, 40, 50, 90, 0}},
           {"on the left edge, wider than max", {0, 150, 50, 90, 100}, {0, 100, 50, 90, 0}},
           {"top edge keeps the height", {10, 30, -4, 20, 100}, {10, 30, 0, 24, 0}},
           {"right edge caps the width", {300, 500, 50, 90, 100}, {379, 479, 50, 90, 0}},
           {"bottom edge caps the height", {10, 30, 200, 300, 60}, {10, 30, 209, 269, 0}},
           {"inside and larger than max", {10, 400, 20, 250, 100}, {10, 400, 20, 250, 0}},
           {"left clamp first: right edge no longer crossed", {-10, 600, 50, 90, 100}, {0, 100, 50, 90, 0}},
           {"empty box is clamped all the same", {-5, -5, 50, 90, 100}, {0, 0, 50, 90, -1}},
           {"upside-down box", {10, 30, 90, 50, 100}, {10, 30, 90, 50, -1}},
       }) {
    plovix_test::LogCapture log;
    Edges5 got = in;
    got[4] = PlovixEngine::ValidateRect(&got[0], &got[1], &got[2], &got[3], 480, 270, in[4]);
    EXPECT_EQ(want, got) << name;
    EXPECT_EQ(want[4] == 0 ? 0 : 1, log.Count("PlovixPlugin ValidateRect failed!!")) << name;
  }
}
