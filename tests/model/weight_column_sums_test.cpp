#include "model/weight_column_sums.h"

#include "support/test_support.h"

namespace {

using plovix_test::Edges;

void ExpectSameMoments(const WeightMoments& got, const WeightMoments& want, const OT_RECT& r) {
  EXPECT_EQ(got.sum, want.sum) << ::testing::PrintToString(Edges(r));
  EXPECT_EQ(got.sumX, want.sumX) << ::testing::PrintToString(Edges(r));
  EXPECT_EQ(got.sumY, want.sumY) << ::testing::PrintToString(Edges(r));
}

// Windows inside the image come from the sums, the others from the pixels; both must agree with
// summing pixels, including the linear-index reads of windows that stick out.
TEST(WeightColumnSums, MomentsEqualPixelSumsForEveryWindow) {
  for (auto [w, h] : {std::pair{37, 23}, std::pair{64, 48}, std::pair{1, 9}}) {
    std::vector<uint8_t> px(static_cast<size_t>(w) * h);
    uint32_t s = 12345;
    for (auto& p : px) {
      s = s * 1664525u + 1013904223u;
      p = static_cast<uint8_t>(s >> 24);
    }
    const WeightColumnSums sums(px.data(), w, h);
    for (int i = 0; i < 400; ++i) {
      s = s * 1664525u + 1013904223u;
      const int l = static_cast<int>(s % (w + 6)) - 3;
      const int t = static_cast<int>((s >> 8) % (h + 6)) - 3;
      const int r = l + static_cast<int>((s >> 16) % (w + 2));
      const int b = t + static_cast<int>((s >> 24) % (h + 2));
      const OT_RECT rect{l, t, r, b};
      ExpectSameMoments(sums.Moments(rect), MomentsInRect(px.data(), w, h, rect), rect);
    }
    const OT_RECT whole{0, 0, w, h};
    ExpectSameMoments(sums.Moments(whole), MomentsInRect(px.data(), w, h, whole), whole);
  }
}

// Column sums of y * weight reach 255 * h * (h - 1) / 2: at 5800 rows just inside 32 bits, at
// 5805 rows past them, where the sums must not be used.
TEST(WeightColumnSums, StaysExactForImagesTooTallForThirtyTwoBitSums) {
  for (int h : {5800, 5805}) {
    const std::vector<uint8_t> px(static_cast<size_t>(2) * h, 255);
    const WeightColumnSums sums(px.data(), 2, h);
    const OT_RECT whole{0, 0, 2, h};
    const WeightMoments m = sums.Moments(whole);
    EXPECT_EQ(m.sumY, uint64_t{255} * 2 * h * (h - 1) / 2) << h;
    ExpectSameMoments(m, MomentsInRect(px.data(), 2, h, whole), whole);
  }
}

}  // namespace
