#include "engine/frame_intake.h"

#include "engine/working_image.h"
#include "support/test_support.h"

namespace {

using plovix_test::Edges;

// A frame of random bytes and two working buffers: one decimated whole, one taken in part by part.
// Both start with the same filler, standing for whatever an earlier frame left there.
struct Intake {
  Intake(int width, int height, int rate) : srcW(width), srcH(height), w(width / rate), h(height / rate) {
    src.resize(static_cast<size_t>(width) * height * 3 / 2);
    uint32_t s = 99;
    for (auto& b : src) {
      s = s * 1664525u + 1013904223u;
      b = static_cast<uint8_t>(s >> 24);
    }
    const size_t bytes = static_cast<size_t>(w) * h * 3 / 2 + 2 * w + 64;
    whole.assign(bytes, 0xA5);
    parts.assign(bytes, 0xA5);
    DecimateFrame(src.data(), Chroma(), srcW, whole.data(), w, h);
  }
  const uint8_t* Chroma() const { return src.data() + static_cast<size_t>(srcW) * srcH; }
  FrameIntake Start() { return FrameIntake(src.data(), Chroma(), srcW, parts.data(), w, h); }
  // The luma of r and, for its blocks, the chroma bytes the back projection reads.
  void ExpectBlocksAsWhole(const OT_RECT& r, bool chroma) const {
    const size_t c0 = static_cast<size_t>(w) * h;
    for (int y = r.top; y < r.bottom; ++y) {
      for (int x = r.left; x < r.right; ++x) {
        const size_t i = static_cast<size_t>(y) * w + x;
        ASSERT_EQ(parts[i], whole[i]) << "luma " << x << "," << y << " of " << ::testing::PrintToString(Edges(r));
        if (!chroma) continue;
        const size_t c = c0 + static_cast<size_t>(y >> 1) * w + (x & ~1);
        ASSERT_EQ(parts[c], whole[c]) << "chroma for " << x << "," << y;
        ASSERT_EQ(parts[c + 1], whole[c + 1]) << "chroma for " << x << "," << y;
      }
    }
  }
  int srcW, srcH, w, h;
  std::vector<uint8_t> src, whole, parts;
};

// Requests as the tracking step makes them, at even and odd working widths, with and without
// decimation; everything asked for must be what the whole decimation gives, and after TakeAll the
// whole buffer must be.
TEST(FrameIntake, EveryPartTakenInIsWhatTheWholeDecimationGives) {
  for (auto [width, height, rate] : {std::tuple{1920, 1080, 4}, {810, 600, 2}, {640, 480, 1}, {90, 62, 1}}) {
    SCOPED_TRACE(testing::Message() << width << "x" << height);
    Intake in(width, height, rate);
    FrameIntake intake = in.Start();
    uint32_t s = 7;
    for (int i = 0; i < 12; ++i) {
      s = s * 1664525u + 1013904223u;
      const int l = static_cast<int>(s % in.w) & ~1;
      const int t = static_cast<int>((s >> 10) % in.h) & ~1;
      const OT_RECT blocks{l, t, std::min(in.w, l + 2 + static_cast<int>((s >> 4) % 60)) & ~1,
                           std::min(in.h, t + 2 + static_cast<int>((s >> 14) % 40)) & ~1};
      intake.TakeBlocks(blocks);
      in.ExpectBlocksAsWhole(blocks, true);
      const OT_RECT luma{l - 20, t - 10, l + 30, t + 25};  // may stick out of the image
      intake.TakeLuma(luma);
      in.ExpectBlocksAsWhole(OT_RECT{std::max(luma.left, 0), std::max(luma.top, 0), std::min(luma.right, in.w),
                                     std::min(luma.bottom, in.h)},
                             false);
    }
    intake.TakeAll();
    EXPECT_EQ(in.parts, in.whole);
  }
}

// The point of taking in part by part: a small request leaves the rest of the buffer alone.
TEST(FrameIntake, TakesInOnlyAroundWhatWasAskedFor) {
  Intake in(1920, 1080, 4);
  FrameIntake intake = in.Start();
  intake.TakeBlocks(OT_RECT{100, 60, 140, 100});
  intake.TakeLuma(OT_RECT{90, 50, 150, 110});
  const size_t chroma = static_cast<size_t>(in.w) * in.h;
  EXPECT_EQ(0xA5, in.parts[200 * in.w + 300]);                // luma far from the object
  EXPECT_EQ(0xA5, in.parts[chroma + 100 * in.w + 300]);       // chroma far from it
  EXPECT_EQ(in.whole[80 * in.w + 120], in.parts[80 * in.w + 120]);
}

}  // namespace
