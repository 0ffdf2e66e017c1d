#include "model/histogram.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <numeric>
#include <vector>

#include "platform/memory.h"

namespace {

constexpr int kW = 6, kH = 4;
using Hist = std::unique_ptr<int[][32][16]>;
Hist NewHist() { return std::make_unique<int[][32][16]>(32); }
int Total(const Hist& h) { return std::accumulate(&h[0][0][0], &h[0][0][0] + kHistBins, 0); }
std::vector<int> Bins(const Hist& h, int cb, int cr) { return {h[cb][cr], h[cb][cr] + 16}; }

// Luma row 0 in bins 1..6, row 1 in 7..12, rows 2-3 zero; chroma row 0 pairs in bins (1, 2), (3, 4), (5, 6).
struct Image {
  std::unique_ptr<uint8_t, decltype(&std::free)> buf{AllocZeroedImage(kW * kH * 3 / 2, kW), &std::free};
  Image() {
    for (int c = 0; c < kW; ++c) {
      buf.get()[c] = static_cast<uint8_t>(16 * (c + 1));
      buf.get()[kW + c] = static_cast<uint8_t>(16 * (c + 7));
      buf.get()[kW * kH + c] = static_cast<uint8_t>(8 * (c + 1));
    }
  }
  uint8_t* y() { return buf.get(); }
  uint8_t* cbcr() { return buf.get() + kW * kH; }
};

TEST(Histogram, WalksWholeBlocksWithChromaFollowingTheBlockCounter) {
  Image img;
  Hist h = NewHist();
  h[3][4][3] = 5;
  GetHistogram_YCC420BUNCH_Obj(img.y(), img.cbcr(), kW, kH, kW, OT_RECT{1, 0, 4, 2}, h.get());  // odd left
  GetHistogram_YCC420BUNCH_Obj(img.y(), img.cbcr(), kW, kH, kW, OT_RECT{2, 0, 3, 1}, h.get());  // 1 x 1
  GetHistogram_YCC420BUNCH_Obj(img.y(), img.cbcr(), kW, kH, kW, OT_RECT{2, 0, 2, 2}, h.get());
  EXPECT_EQ(Bins(h, 1, 2), (std::vector<int>{0, 0, 1, 1, 0, 0, 0, 0, 1, 1, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Bins(h, 3, 4), (std::vector<int>{0, 0, 0, 6, 2, 1, 0, 0, 0, 1, 2, 1, 0, 0, 0, 0}));
  EXPECT_EQ(Total(h), 5 + 8 + 4);
}

TEST(Histogram, MaskedWalkCountsOnlyBytesOf255) {
  Image img;
  Hist h = NewHist();
  std::vector<uint8_t> mask(kW * kH + ImageReadPad(kW), 0);
  mask[0] = mask[kW + 1] = mask[kW + 3] = 255;
  mask[1] = 254;
  mask[kW] = 1;
  GetMaskedHistogram_YCC420BUNCH(img.y(), img.cbcr(), kW, kH, kW, OT_RECT{0, 0, 3, 2}, h.get(), mask.data());
  EXPECT_EQ(h[1][2][1] + h[1][2][8] + h[3][4][10], 3);
  EXPECT_EQ(Total(h), 3);
  SetModelMaskedRect_YCC420BUNCH_Obj(h.get(), img.y(), img.cbcr(), kW, kH, kW, OT_RECT{-2, -2, 2, 2}, mask.data());
  EXPECT_EQ(h[1][2][1] + h[1][2][8], 2);
  EXPECT_EQ(Total(h), 2);
}

TEST(Histogram, ModelOfARectBeyondTheFrameEqualsTheWholeFrame) {
  Image img;
  Hist whole = NewHist(), rect = NewHist();
  whole[9][9][9] = rect[9][9][9] = 1234;
  SetModel_YCC420BUNCH_Obj(whole.get(), img.y(), img.cbcr(), kW, kH, kW);
  SetModelRect_YCC420BUNCH_Obj(rect.get(), img.y(), img.cbcr(), kW, kH, kW, OT_RECT{-4, -4, 10, 10});
  EXPECT_EQ(Total(whole), kW * kH);
  EXPECT_EQ(0, std::memcmp(whole.get(), rect.get(), sizeof(int) * kHistBins));
  SetModelRect_YCC420BUNCH_Obj(rect.get(), img.y(), img.cbcr(), kW, kH, kW, OT_RECT{4, 1, 4, 3});
  EXPECT_EQ(Total(rect), 0);
}

TEST(Histogram, RatioModelIsTheCappedShareOfTheScene) {
  const struct {
    int model, scene, weight;
  } cases[] = {{3, 4, 192}, {7, 7, 255}, {1, 3, 85}, {5, 0, 0}, {9, 1, 255}, {0x00800000, 2, -(1 << 30)}};
  Hist model = NewHist(), scene = NewHist();
  for (int i = 0; i < 6; ++i) {
    model[i][1][2] = cases[i].model;
    scene[i][1][2] = cases[i].scene;
  }
  MakeRatioModel(model.get(), scene.get());
  for (int i = 0; i < 6; ++i) EXPECT_EQ(model[i][1][2], cases[i].weight) << i;  // the last wraps in m << 8
  EXPECT_EQ(scene[0][1][2], 4);
}

}  // namespace
