#include "model/histogram.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <numeric>

#include "platform/memory.h"
#include "support/test_support.h"

namespace {

constexpr int kW = 6, kH = 4;
using Hist = std::unique_ptr<int[][32][16]>;
Hist NewHist() { return std::make_unique<int[][32][16]>(32); }
std::vector<int> Bins(const int* luma) { return std::vector<int>(luma, luma + 16); }
int Total(const Hist& h) { return std::accumulate(&h[0][0][0], &h[0][0][0] + kHistBins, 0); }

// Luma row 0 in bins 1..6, row 1 in 7..12, rows 2-3 zero; chroma row 0 pairs in bins (1, 2), (3, 4), (5, 6).
struct Image {
  std::unique_ptr<uint8_t, decltype(&std::free)> buf{AllocZeroedImage(kW * kH * 3 / 2, kW), &std::free};
  uint8_t* y = buf.get();
  uint8_t* cbcr = buf.get() + kW * kH;
  Image() {
    for (int c = 0; c < kW; ++c) y[c] = 16 * (c + 1), y[kW + c] = 16 * (c + 7), cbcr[c] = 8 * (c + 1);
  }
};

TEST(Histogram, WalksWholeBlocksWithChromaFollowingTheBlockCounter) {
  Image img;
  Hist h = NewHist();
  h[3][4][3] = 5;
  for (const OT_RECT r : {OT_RECT{1, 0, 4, 2}, OT_RECT{2, 0, 3, 1}, OT_RECT{2, 0, 2, 2}}) {  // odd left, 1 x 1, empty
    GetHistogram_YCC420BUNCH_Obj(img.y, img.cbcr, kW, kH, kW, r, h.get());
  }
  EXPECT_EQ(Bins(h[1][2]), (std::vector<int>{0, 0, 1, 1, 0, 0, 0, 0, 1, 1, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Bins(h[3][4]), (std::vector<int>{0, 0, 0, 6, 2, 1, 0, 0, 0, 1, 2, 1, 0, 0, 0, 0}));
  EXPECT_EQ(Total(h), 5 + 8 + 4);
}

TEST(Histogram, MaskedWalkCountsOnlyBytesOf255) {
  Image img;
  Hist h = NewHist();
  std::vector<uint8_t> mask(kW * kH + ImageReadPad(kW), 0);
  mask[0] = mask[kW + 1] = mask[kW + 3] = 255;
  mask[1] = 254;
  mask[kW] = 1;
  GetMaskedHistogram_YCC420BUNCH(img.y, img.cbcr, kW, kH, kW, OT_RECT{0, 0, 3, 2}, h.get(), mask.data());
  EXPECT_EQ(std::vector<int>({h[1][2][1], h[1][2][8], h[3][4][10], Total(h)}), std::vector<int>({1, 1, 1, 3}));
  SetModelMaskedRect_YCC420BUNCH_Obj(h.get(), img.y, img.cbcr, kW, kH, kW, OT_RECT{-2, -2, 2, 2}, mask.data());
  EXPECT_EQ(std::vector<int>({h[1][2][1], h[1][2][8], Total(h)}), std::vector<int>({1, 1, 2}));
}

TEST(Histogram, ModelOfARectBeyondTheFrameEqualsTheWholeFrame) {
  Image img;
  Hist whole = NewHist(), rect = NewHist();
  whole[9][9][9] = rect[9][9][9] = 1234;
  SetModel_YCC420BUNCH_Obj(whole.get(), img.y, img.cbcr, kW, kH, kW);
  SetModelRect_YCC420BUNCH_Obj(rect.get(), img.y, img.cbcr, kW, kH, kW, OT_RECT{-4, -4, 10, 10});
  EXPECT_EQ(Total(whole), kW * kH);
  EXPECT_EQ(0, std::memcmp(whole.get(), rect.get(), sizeof(int) * kHistBins));
  SetModelRect_YCC420BUNCH_Obj(rect.get(), img.y, img.cbcr, kW, kH, kW, OT_RECT{4, 1, 4, 3});
  EXPECT_EQ(Total(rect), 0);
}

// The last case wraps in m << 8.
TEST(Histogram, RatioModelIsTheCappedShareOfTheScene) {
  const std::tuple<int, int, int> cases[] = {{3, 4, 192}, {7, 7, 255}, {1, 3, 85},
                                             {5, 0, 0},   {9, 1, 255}, {0x00800000, 2, -(1 << 30)}};
  Hist model = NewHist(), scene = NewHist();
  for (int i = 0; i < 6; ++i) std::tie(model[i][1][2], scene[i][1][2], std::ignore) = cases[i];
  MakeRatioModel(model.get(), scene.get());
  for (int i = 0; i < 6; ++i) EXPECT_EQ(model[i][1][2], std::get<2>(cases[i])) << i;
  EXPECT_EQ(scene[0][1][2], 4);
}

}  // namespace
