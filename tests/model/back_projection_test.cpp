#include "model/back_projection.h"

#include <cstdlib>
#include <memory>

#include "platform/memory.h"
#include "support/test_support.h"

namespace {

constexpr int kW = 6, kH = 4;
constexpr uint8_t kX = 0xEE;  // untouched

// Luma bins by row start at 1, 7, 0, 10 and rise by one per column; chroma pairs have Cb bins 1, 3, 5
// above and 7, 9, 11 below. The model weighs a pixel Cb bin * 16 + luma bin, except that bin
// [1][0][1] holds 256 + 17: only the low byte counts, no clamping. The complete form rounds edges
// down to even and writes only inside; the fast form repeats the upper row of each block.
TEST(BackProjection, CompleteAndFastForms) {
  std::unique_ptr<uint8_t, decltype(&std::free)> buf{AllocZeroedImage(kW * kH * 3 / 2, kW), &std::free};
  uint8_t* y = buf.get();
  const int firstBin[kH] = {1, 7, 0, 10};
  for (int i = 0; i < kW * kH; ++i) y[i] = static_cast<uint8_t>(16 * (firstBin[i / kW] + i % kW));
  for (int k = 0; k < 6; k += 2) {
    y[kW * kH + k] = static_cast<uint8_t>(8 * (k + 1));
    y[kW * kH + kW + k] = static_cast<uint8_t>(8 * (k + 7));
  }
  auto hist = std::make_unique<int[][32][16]>(32);
  for (int i = 0; i < 32 * 32 * 16; ++i) (&hist[0][0][0])[i] = (i / (32 * 16)) * 16 + i % 16;
  hist[1][0][1] = 256 + 17;

  std::vector<uint8_t> complete(kW * kH, kX), fast(kW * kH, kX);
  for (const OT_RECT r : {OT_RECT{1, 1, 5, 5}, OT_RECT{4, 0, 5, 4}, OT_RECT{0, 3, 6, 3}, OT_RECT{5, 1, 1, 4}}) {
    GetBackProjectionImage_YCC420BUNCH_Obj_C(hist.get(), y, y + kW * kH, kW, kH, kW, complete.data(), r);
  }
  for (const OT_RECT r : {OT_RECT{2, 0, 6, 4}, OT_RECT{0, 1, 1, 4}}) {
    GetBackProjectionImage_YCC420BUNCH_Obj(hist.get(), y, y + kW * kH, kW, kH, kW, fast.data(), r);
  }
  EXPECT_EQ(complete, (std::vector<uint8_t>{17,  18,  51,  52,  kX, kX, 23,  24,  57,  58,  kX, kX,  //
                                            112, 113, 146, 147, kX, kX, 122, 123, 156, 157, kX, kX}));
  EXPECT_EQ(fast, (std::vector<uint8_t>{kX, kX, 51,  52,  85,  86,  kX, kX, 51,  52,  85,  86,  //
                                        kX, kX, 146, 147, 180, 181, kX, kX, 146, 147, 180, 181}));
}

}  // namespace
