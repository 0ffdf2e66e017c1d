#include "demo_clip.h"

#include <cmath>

#include "gtest/gtest.h"

namespace plovix_replay {
namespace {

// The truth must be where the disc is drawn, zoomed or not: find the disc's orange pixels (high
// V, low U) and compare their centroid with the reported centre.
TEST(DemoClip, TrueCentreIsWhereTheDiscIsDrawnAlsoWhenZoomed) {
  DemoClip clip;
  Picture p;
  std::string error;
  const long checked[] = {0, 40, 175, 190};  // before, during and after the zoom-in
  long next = 0;
  for (long frame : checked) {
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
  EXPECT_EQ(DemoClip::ZoomAt(0), 1.0f);
}

TEST(DemoClip, TheDiscDisappearsBehindThePillar) {
  // Frames around its first crossing: it is hidden in some and visible before and after.
  DemoClip clip(120);
  Picture p;
  std::string error;
  while (clip.Read(&p, &error) == ReadStatus::kFrame) {
  }
  const std::vector<TruthPoint>& t = clip.Truth();
  EXPECT_TRUE(t[60].visible);
  EXPECT_FALSE(t[85].visible);
  EXPECT_TRUE(t[110].visible);
}

TEST(DemoClip, EventsTouchTheDiscAndRampTheZoom) {
  DemoClip clip;
  const std::vector<Event> events = clip.Events();
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events[0].kind, EventKind::kTouch);
  EXPECT_EQ(events[0].frame, 0);
  EXPECT_NEAR(FocusToPixel(events[0].x, kDemoWidth), DemoClip::CentreAt(0).x, 1.0);
  EXPECT_NEAR(FocusToPixel(events[0].y, kDemoHeight), DemoClip::CentreAt(0).y, 1.0);
  float last = 1.0f;
  for (size_t i = 1; i < events.size(); ++i) {
    EXPECT_EQ(events[i].kind, EventKind::kZoom);
    EXPECT_EQ(events[i].zoom, DemoClip::ZoomAt(events[i].frame));
    EXPECT_GT(events[i].zoom, last);
    last = events[i].zoom;
  }
}

}  // namespace
}  // namespace plovix_replay
