#include "tracking/ncc.h"

#include <algorithm>

#include "support/test_support.h"

namespace {

using Bytes = std::vector<uint8_t>;

// Deviations over a 3 x 3 patch: A055 / B055 correlate at exactly 33 / 60 = 0.55, A050 / B050 at
// exactly 21 / 42 = 0.5.
const int kA055[9] = {-2, 3, 3, -2, -1, 0, -4, -1, 4}, kB055[9] = {0, 3, 0, -3, -2, -3, -2, 4, 3};
const int kA050[9] = {2, 2, -2, -1, 0, 0, -2, -3, 4}, kB050[9] = {1, -1, 1, -4, 2, 0, 1, -3, 3};
Bytes Patch(const int* dev, int mean, int scale) {
  Bytes p(9);
  for (int i = 0; i < 9; ++i) p[i] = static_cast<uint8_t>(mean + scale * dev[i]);
  return p;
}

Bytes Texture(size_t n, uint32_t seed) {
  Bytes img(n);
  for (auto& v : img) v = static_cast<uint8_t>((seed = seed * 1664525u + 1013904223u) >> 24);
  return img;
}

// image is exactly w * (size / w) bytes, so a read outside it shows under ASan.
int Score(Bytes image, OT_RECT r, int w, Bytes tmpl, int tw, int th) {
  return matching_ncc(image.data(), r, w, static_cast<int>(image.size()) / w, tmpl.data(), tw, th);
}

TEST(MatchingNcc, ScoresOfKnownCorrelations) {
  const Bytes a = Patch(kA055, 100, 10), flat(9, 77), lowContrast{10, 12, 11, 11, 11, 11, 11, 11, 11};
  for (auto [image, tmpl, expected] : {std::tuple{a, a, 99},  // q = 1: 99.9996 through the approximate 1 / sqrt
                                       {a, Patch(kA055, 155, -10), -99},
                                       {a, Patch(kB055, 120, 10), 54},
                                       {Patch(kA050, 100, 10), Patch(kB050, 120, 10), 49},
                                       {Patch(kA050, 100, -10), Patch(kB050, 120, 10), -49},
                                       {flat, a, -100},
                                       {a, flat, -100},
                                       {lowContrast, lowContrast, -100}}) {  // D = 2 * 2, below 100
    EXPECT_EQ(Score(image, {0, 0, 3, 3}, 3, tmpl, 3, 3), expected);
  }
}

TEST(MatchingNcc, LargeBrightPatchesWrapTheVarianceProducts) {
  // Identical 250 / 254 checkerboards: at 200 x 200, 2 * SA * mA passes 32 bits and the score
  // collapses to 0; at 150 x 150 it does not.
  for (int n : {150, 200}) {
    Bytes img(static_cast<size_t>(n) * n);
    for (size_t i = 0; i < img.size(); ++i) img[i] = ((i % n + i / n) % 2 == 0) ? 250 : 254;
    EXPECT_EQ(Score(img, {0, 0, n, n}, n, img, n, n), n == 150 ? 99 : 0);
  }
}

TEST(MatchingNcc, ComparesTheCentredPartsOfRectangleAndTemplateReadingZerosPastThePlane) {
  const Bytes img = Texture(400, 7);  // 20 x 20
  Bytes part, big = Texture(56, 99);  // the 4 x 3 image part at column 7, row 8; an 8 x 7 template
  for (int y = 8; y < 11; ++y) part.insert(part.end(), &img[y * 20 + 7], &img[y * 20 + 11]);
  for (int r = 0; r < 3; ++r) std::copy(&part[r * 4], &part[r * 4 + 4], &big[(r + 2) * 8 + 2]);
  // The centre of (5, 6, 14, 13) starts at column 19 / 2 - 2 = 7, row 19 / 2 - 1 = 8.
  EXPECT_EQ(Score(img, {5, 6, 14, 13}, 20, part, 4, 3), 99);
  EXPECT_LT(Score(img, {6, 6, 15, 13}, 20, part, 4, 3), 60);
  EXPECT_EQ(Score(img, {7, 8, 11, 11}, 20, big, 8, 7), 99);

  // In a 6 x 4 image (-3, 2, 0, 5) centres toward zero at column -2, row 2: each row starts at the
  // end of the row above, and the last one lies past the plane, where it reads zeros.
  const Bytes small = Texture(24, 3);
  Bytes edge;
  for (int i = 0; i < 9; ++i) {
    const int at = (2 + i / 3) * 6 - 2 + i % 3;
    edge.push_back(at >= 24 ? 0 : small[at]);
  }
  EXPECT_EQ(Score(small, {-3, 2, 0, 5}, 6, edge, 3, 3), 99);
}

TEST(MatchingNcc, MissingTemplateLogsOncePerCall) {
  Bytes a = Patch(kA055, 100, 10);
  for (auto [tmpl, tw, th] : {std::tuple{static_cast<uint8_t*>(nullptr), 3, 3}, {a.data(), 0, 3}, {a.data(), 3, -1}}) {
    plovix_test::LogCapture log;
    EXPECT_EQ(matching_ncc(a.data(), {0, 0, 3, 3}, 3, 3, tmpl, tw, th), -100);
    EXPECT_EQ(log.Tagged(), std::vector<std::string>{"6 Can't update NCC for lack of information"});
  }
}

}  // namespace
