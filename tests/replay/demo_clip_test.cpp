#include "demo_clip.h"

#include "gtest/gtest.h"

namespace plovix_replay {
namespace {

// The truth must be where the disc is drawn, zoomed or not: find the disc's orange pixels (high
// V, low U) and compare their centroid with the reported centre.
TEST(DemoClip, TrueCentreIsWhereTheDiscIsDrawnAlsoWhenZoomed) {
  DemoClip clip;
  Picture p;
  std::string error;
  long next = 0;
  for (long frame : {0, 40, 175, 190}) {  // before, during and after the zoom-in
    for (; next <= frame; ++next) ASSERT_EQ(clip.Read(&p, &error), ReadStatus::kFrame);
    double sx = 0, sy = 0;
    long n = 0;
    const int cw = p.ChromaWidth();
    for (int y = 0; y < p.ChromaHeight(); ++y) {
      for (int x = 0; x < cw; ++x) {
        if (p.v[y * cw + x] < 180 || p.u[y * cw + x] > 100) continue;
        sx += 2 * x + 1;
        sy += 2 * y + 1;
        ++n;
      }
    }
    ASSERT_GT(n, 0) << frame;
    const TruthPoint t = clip.Truth()[frame];
    EXPECT_TRUE(t.visible) << frame;
    EXPECT_NEAR(sx / n, t.x, 1.5) << frame;
    EXPECT_NEAR(sy / n, t.y, 1.5) << frame;
  }
  EXPECT_GT(DemoClip::ZoomAt(190), 1.5f);
  // Around its first crossing of the pillar the disc is hidden, and visible before and after.
  EXPECT_TRUE(clip.Truth()[60].visible);
  EXPECT_FALSE(clip.Truth()[85].visible);
  EXPECT_TRUE(clip.Truth()[110].visible);
}

}  // namespace
}  // namespace plovix_replay
