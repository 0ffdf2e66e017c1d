#include "schedule.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using soak::Phase;
using soak::Step;
using soak::StepAt;

TEST(Schedule, OneCycleRunsEveryPhaseInOrderForItsLength) {
  struct Case {
    Phase phase;
    int first, frames;
  } cases[] = {
      {Phase::kTouch, 0, 30},    {Phase::kMove, 30, 150}, {Phase::kZoom, 180, 120},   {Phase::kResize, 300, 120},
      {Phase::kBlink, 420, 60},  {Phase::kLoss, 480, 130}, {Phase::kRecover, 610, 60}, {Phase::kReinit, 670, 30},
  };
  ASSERT_EQ(soak::CycleLength(), 700);
  for (int64_t cycle : {0, 5}) {
    for (const Case& c : cases) {
      const int64_t first = cycle * 700 + c.first;
      SCOPED_TRACE(testing::Message() << soak::InfoOf(c.phase).name << " of cycle " << cycle);
      EXPECT_EQ(StepAt(first).phase, c.phase);
      EXPECT_EQ(StepAt(first).frameInPhase, 0);
      EXPECT_EQ(StepAt(first).cycle, cycle);
      EXPECT_FALSE(StepAt(first + c.frames - 2).lastOfPhase);
      EXPECT_TRUE(StepAt(first + c.frames - 1).lastOfPhase);
      EXPECT_EQ(StepAt(first + c.frames - 1).phase, c.phase);
    }
  }
}

// The host's actions over one cycle (the second, so that cycle arithmetic is exercised), frame by
// frame: 2 touches, 1 re-initialisation, 20 + 130 hidden frames, 60 at 640x480.
TEST(Schedule, HostActionsFallOnTheirFrames) {
  for (int at = 0; at < 700; ++at) {
    const Step s = StepAt(700 + at);
    SCOPED_TRACE(testing::Message() << "frame " << at << " of the cycle");
    EXPECT_EQ(s.touch, at == 0 || at == 610);
    EXPECT_EQ(s.reinitBefore, at == 670);
    EXPECT_EQ(s.disc.visible, !((at >= 420 && at < 440) || (at >= 480 && at < 610)));
    EXPECT_EQ(s.wide, !(at >= 300 && at < 360));
  }
}

TEST(Schedule, ZoomStepsUpAndBackDown) {
  struct Case {
    int at;
    float zoom;
  } cases[] = {{179, 1.0f}, {180, 1.0f}, {204, 1.25f}, {228, 1.5f}, {251, 1.5f}, {252, 1.25f}, {276, 1.0f}, {300, 1.0f}};
  for (const Case& c : cases) EXPECT_EQ(StepAt(c.at).zoom, c.zoom) << c.at;
}

// A disc partly outside the preview, or jumping further than the tracker's search reaches, would
// make a phase fail for a reason that has nothing to do with the engine's health. The path moves
// at most 5.6 sensor units per frame: 8.4 pixels at zoom 1.5, plus rounding.
TEST(Schedule, DiscStaysInsideThePreviewAndMovesSmoothly) {
  Step prev = StepAt(0);
  for (int64_t f = 0; f < 20 * 700; ++f) {
    const Step s = StepAt(f);
    const int w = soak::PreviewWidth(s), h = soak::PreviewHeight(s);
    ASSERT_GE(s.disc.cx - s.disc.radius, 0) << f;
    ASSERT_GE(s.disc.cy - s.disc.radius, 0) << f;
    ASSERT_LT(s.disc.cx + s.disc.radius, w) << f;
    ASSERT_LT(s.disc.cy + s.disc.radius, h) << f;
    if (s.wide == prev.wide && s.zoom == prev.zoom) {
      ASSERT_LE(std::hypot(s.disc.cx - prev.disc.cx, s.disc.cy - prev.disc.cy), 9.0) << f;
    }
    prev = s;
  }
  EXPECT_EQ(StepAt(0).disc.radius, 60);
  EXPECT_EQ(StepAt(300).disc.radius, 30);  // half scale at 640x480
  EXPECT_EQ(StepAt(228).disc.radius, 90);  // zoom 1.5
}

// The engine maps focus units u to pixel truncate(float((u + 1000) * W) / 2000 / rate); at rate 1
// every touched pixel must come back as itself.
TEST(Schedule, TouchInFocusUnitsLandsOnTheTouchedPixel) {
  for (int size : {1280, 720, 640, 480}) {
    for (int p = 0; p < size; ++p) {
      const int u = soak::ToFocusUnits(p, size);
      ASSERT_GE(u, -1000);
      ASSERT_LE(u, 1000);
      const int back = static_cast<int>(static_cast<float>((u + 1000) * size) / 2000.0f / 1.0f);
      ASSERT_EQ(back, p) << "pixel " << p << " of " << size;
    }
  }
}

}  // namespace
