#include "image/dib.h"

#include <cstdlib>

#include "support/test_support.h"

namespace {

using Bytes = std::vector<uint8_t>;

Bytes Ramp(int n, int from = 0) {
  Bytes v(n);
  for (int i = 0; i < n; ++i) v[i] = static_cast<uint8_t>(from + i);
  return v;
}

TEST(Dib, ChromaPointersAddressThePairOfAPixel) {
  Bytes bytes = Ramp(64);
  tag_CDibYCC422 dib{bytes.data(), 4, 2, 16};
  for (int x = 0; x < 4; ++x) {  // row 1: the Cb of pair k at 16 + 4k + 1
    EXPECT_EQ(CDibYCC_GetCbPointer(&dib, x, 1) - bytes.data(), 17 + 4 * (x / 2));
    EXPECT_EQ(CDibYCC_GetCbPointerExt(x, 1, bytes.data(), 16) - bytes.data(), 17 + 4 * (x / 2));
  }
}

TEST(Dib, InverseTouchesOnlyTheProcessedBytes) {
  const Bytes plane = Ramp(10);
  tag_CDibY* dib = CDibY_newCDibYwithImage(plane.data(), 3, 2, 5);
  CDibY_Inverse(dib);
  EXPECT_EQ(Bytes(dib->pixels, dib->pixels + 10), (Bytes{255, 254, 253, 3, 4, 250, 249, 248, 8, 9}));
  CDibY_Inverse(dib);
  CDibYCC_Inverse(dib);  // luma bytes 0, 2, 4 of each row
  EXPECT_EQ(Bytes(dib->pixels, dib->pixels + 10), (Bytes{255, 1, 253, 3, 251, 250, 6, 248, 8, 246}));
  CDibY_delCDibY(dib);
}

TEST(Dib, ConvertYCCCoreFillsChromaWith136) {
  Bytes plane = {10, 11, 99, 20, 21, 99};
  tag_CDibY dib{plane.data(), 2, 2, 3};
  uint8_t* out = CDibY_ConvertYCCCore(&dib);
  EXPECT_EQ(Bytes(out, out + 12), (Bytes{10, 136, 11, 136, 136, 136, 20, 136, 21, 136, 136, 136}));
  std::free(out);
}

using Ints = std::vector<int>;

// Edges are evened inward and written back to the caller; the cut itself is clamped to the image.
TEST(Dib, Clip422EvensHorizontalEdgesInwardAndClamps) {
  Bytes bytes = Ramp(200);
  tag_CDibYCC422 dib{bytes.data(), 10, 10, 20};
  const struct {
    Ints in, out, size;
    int first;
  } cases[] = {{{3, 1, 9, 3}, {4, 1, 8, 3}, {4, 2, 8}, 28}, {{-3, -1, 4, 2}, {-2, -1, 4, 2}, {4, 2, 8}, 0}};
  for (const auto& c : cases) {
    Ints e = c.in;
    tag_CDibYCC422* cut = CDibYCC_ClipCDib(&dib, &e[0], &e[1], &e[2], &e[3]);
    EXPECT_EQ(e, c.out);
    EXPECT_EQ((Ints{cut->width, cut->height, cut->lineStep}), c.size);
    EXPECT_EQ((Ints{cut->pixels[0], cut->pixels[8]}), (Ints{c.first, c.first + 20}));
    CDibY_delCDibY(cut);
  }
}

// Chroma rows come from (top + i) / 2 for i < H/2 and land in row i/2: the lower half stays zero.
TEST(Dib, Clip420CopiesOnlyTheUpperChromaRows) {
  const Bytes luma = Ramp(64), chroma = Ramp(32, 100);
  tag_CDibYCC420* dib = CDibYCC420_newCDibYCC420withImage(luma.data(), chroma.data(), 8, 8, 8);
  Ints e = {1, 3, 9, 9};
  tag_CDibYCC420* cut = CDibYCC420_ClipCDib(dib, &e[0], &e[1], &e[2], &e[3]);
  EXPECT_EQ(e, (Ints{2, 4, 8, 8}));
  ASSERT_EQ((Ints{cut->width, cut->height, cut->lineStep}), (Ints{6, 4, 6}));
  EXPECT_EQ((Ints{cut->y[0], cut->y[23]}), (Ints{34, 63}));
  EXPECT_EQ(Bytes(cut->cbcr, cut->cbcr + 12), (Bytes{118, 119, 120, 121, 122, 123, 0, 0, 0, 0, 0, 0}));
  CDibYCC420_delCDibYCC420(cut);
  CDibYCC420_delCDibYCC420(dib);
}

}  // namespace
