#include "image/seed_fill.h"

#include <cstdlib>
#include <deque>

#include "platform/memory.h"
#include "support/test_support.h"

namespace {

// Plain 4-connected breadth-first fill over the luma values within `threshold` of the seed's.
std::vector<uint8_t> ReferenceFill(const std::vector<uint8_t>& img, int w, int h, int sx, int sy, int threshold) {
  std::vector<uint8_t> out(img.size(), 0);
  std::deque<std::pair<int, int>> todo = {{sx, sy}};
  while (!todo.empty()) {
    auto [x, y] = todo.front();
    todo.pop_front();
    if (x < 0 || y < 0 || x >= w || y >= h || out[y * w + x] != 0) continue;
    if (std::abs(img[y * w + x] - img[sy * w + sx]) > threshold) continue;
    out[y * w + x] = 255;
    todo.insert(todo.end(), {{x - 1, y}, {x + 1, y}, {x, y - 1}, {x, y + 1}});
  }
  return out;
}

TEST(SeedFill, MatchesAPlainFourConnectedFillOnRaggedImages) {
  const int w = 37, h = 23;
  uint32_t s = 12345;
  for (int trial = 0; trial < 40; ++trial) {
    std::vector<uint8_t> img(w * h), chroma(w * h, 0), filled(w * h, 0);
    for (auto& v : img) {
      s = s * 1664525u + 1013904223u;
      v = static_cast<uint8_t>(((s >> 24) % 3) * 100 + ((s >> 16) & 1));  // 0/1, 100/101, 200/201
    }
    const int sx = trial % w, sy = (trial * 7) % h;
    SeedFill fill{w, h, img.data(), chroma.data(), filled.data(), 1};
    fill.doFill(sx, sy);
    ASSERT_EQ(filled, ReferenceFill(img, w, h, sx, sy, 1)) << "trial " << trial;
  }
}

// A 12x10 mask: a block (3..8, 3..8) around a one-pixel hole at (5, 5), and a background pocket
// at (10..11, 0..1) walled off from the corner. Right and bottom at the size (as segmentation clips
// them) are still filled; left or top 0 and right or bottom at the last index leave the mask as it
// was, holes and all.
TEST(FillHoles, FillsOnlyWhenTheRectangleAvoidsTheLeftTopAndLastIndex) {
  constexpr int kW = 12, kH = 10;
  for (auto [l, t, r, b, filled] : {std::tuple{1, 1, kW, kH, true}, {0, 1, 8, 8, false}, {1, 0, 8, 8, false},
                                    {1, 1, kW - 1, 8, false}, {1, 1, 8, kH - 1, false}}) {
    uint8_t* mask = AllocZeroedImage(kW * kH, kW);
    for (int y = 3; y <= 8; ++y) {
      for (int x = 3; x <= 8; ++x) mask[y * kW + x] = 255;
    }
    mask[5 * kW + 5] = 0;
    for (int i = 0; i < 3; ++i) mask[2 * kW + 9 + i] = mask[i * kW + 9] = 255;
    uint8_t* out = Segment_FillHoles(mask, kW, kH, 0, 0, 0, &l, &t, &r, &b);
    EXPECT_EQ(out != mask, filled);
    // Probes: the hole, the pocket, the block, the corner, outside the block.
    const std::vector<int> probes = {out[5 * kW + 5], out[1 * kW + 10], out[3 * kW + 3], out[0], out[5 * kW + 9]};
    EXPECT_EQ(probes, (filled ? std::vector<int>{255, 255, 255, 0, 0} : std::vector<int>{0, 0, 255, 0, 0}));
    std::free(out);
  }
}

// Hole filling reads the mask in place and writes its output complemented; it must give what the
// seed fill over a copy of the mask gives, complemented. The 640x480 mask overflows the segment
// stack, so pushes are dropped and part of its background stays unreached.
TEST(FillHoles, GivesTheComplementOfTheSeedFillOverTheMask) {
  for (auto [w, h, objectShare] : {std::tuple{37, 23, 20}, {64, 48, 25}, {400, 300, 15}, {640, 480, 20}}) {
    std::vector<uint8_t> copy(static_cast<size_t>(w) * h);
    uint32_t s = 777;
    for (auto& v : copy) {
      s = s * 1664525u + 1013904223u;
      const bool object = ((s >> 24) % 100) < static_cast<uint32_t>(objectShare);
      v = object ? 255 : ((s >> 16) & 1);  // background is 0 or 1
    }
    copy[0] = 0;
    std::vector<uint8_t> chroma(copy.size(), 0), filled(copy.size(), 0);
    SeedFill reference{w, h, copy.data(), chroma.data(), filled.data(), 1};
    reference.doFill(0, 0);
    for (auto& v : filled) v ^= 0xFF;

    uint8_t* mask = AllocZeroedImage(copy.size(), w);
    std::copy(copy.begin(), copy.end(), mask);
    int l = 1, t = 1, r = w, b = h;
    uint8_t* out = Segment_FillHoles(mask, w, h, 0, 0, 0, &l, &t, &r, &b);
    ASSERT_NE(out, mask);
    EXPECT_TRUE(std::equal(filled.begin(), filled.end(), out)) << w << "x" << h;
    std::free(out);
  }
}

}  // namespace
