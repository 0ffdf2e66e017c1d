#include "scene.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using soak::Canvas;
using soak::Disc;

constexpr int kW = 96, kH = 64;
constexpr uint32_t kSeed = 3;

std::vector<uint8_t> FreshRender(const Disc& d) {
  Canvas c(kW, kH, kSeed);
  c.Show(d);
  return c.frame();
}

// Only the old and new boxes are repainted; any pixel or chroma pair missed on the way shows as a
// difference from a frame rendered from scratch.
TEST(Canvas, RepaintingOnlyTheChangedBoxesGivesTheFrameRenderedFromScratch) {
  const Disc moves[] = {
      {30, 30, 9, true},   // even centre
      {33, 31, 9, true},   // odd centre: the boxes' chroma edges fall inside blocks
      {34, 33, 12, true},  // grows
      {35, 34, 4, true},   // shrinks: the old, larger box must be cleared
      {2, 1, 7, true},     // clipped at the top left
      {95, 63, 7, true},   // clipped at the bottom right, on the last odd row and column
      {50, 30, 8, false},  // hidden
      {50, 30, 8, true},   // shown again where it was not before
      {120, 80, 5, true},  // wholly outside
      {60, 20, 10, true},
  };
  Canvas c(kW, kH, kSeed);
  for (const Disc& d : moves) {
    SCOPED_TRACE(testing::Message() << d.cx << "," << d.cy << " r" << d.radius << (d.visible ? "" : " hidden"));
    c.Show(d);
    ASSERT_EQ(c.frame(), FreshRender(d));
  }
}

TEST(Canvas, PaintsTheDiscInLumaAndItsBlocksInRedChroma) {
  Canvas plain(kW, kH, kSeed);
  Canvas c(kW, kH, kSeed);
  c.Show(Disc{10, 10, 3, true});
  auto luma = [&](Canvas& k, int x, int y) { return k.luma()[y * kW + x]; };
  auto pair = [&](Canvas& k, int x, int y) {
    const uint8_t* p = k.chroma() + (y / 2) * kW + (x & ~1);
    return std::make_pair(p[0], p[1]);
  };
  EXPECT_EQ(luma(c, 10, 10), 82);
  EXPECT_EQ(luma(c, 13, 10), 82);                  // on the circle
  EXPECT_EQ(luma(c, 13, 11), luma(plain, 13, 11));  // just outside it
  EXPECT_EQ(luma(c, 7, 10), 82);
  EXPECT_EQ(pair(c, 10, 6), std::make_pair(uint8_t{220}, uint8_t{96}));  // row 7 shares the block of row 6
  EXPECT_EQ(pair(c, 13, 10), std::make_pair(uint8_t{220}, uint8_t{96}));
  EXPECT_EQ(pair(c, 14, 10), std::make_pair(uint8_t{128}, uint8_t{128}));  // next block, untouched
  EXPECT_EQ(pair(c, 10, 5), std::make_pair(uint8_t{128}, uint8_t{128}));   // block row above the disc
}

TEST(Canvas, BackgroundIsFixedBySeedAndChromaNeutral) {
  Canvas a(kW, kH, kSeed), b(kW, kH, kSeed), other(kW, kH, kSeed + 1);
  EXPECT_EQ(a.frame(), b.frame());
  EXPECT_NE(a.frame(), other.frame());
  for (int i = 0; i < kW * kH / 2; ++i) ASSERT_EQ(a.chroma()[i], 128) << i;
}

}  // namespace
