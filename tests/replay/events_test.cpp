#include "events.h"

#include <cmath>

#include "gtest/gtest.h"

namespace plovix_replay {
namespace {

TEST(EventOptions, ParseFrameAndValues) {
  Event e;
  std::string error;
  ASSERT_TRUE(ParseEventOption("--touch", "12:-400,999", &e, &error)) << error;
  EXPECT_EQ(e.kind, EventKind::kTouch);
  EXPECT_EQ(e.frame, 12);
  EXPECT_EQ(e.x, -400);
  EXPECT_EQ(e.y, 999);
  EXPECT_FALSE(e.inPixels);
  EXPECT_EQ(e.origin, "--touch 12:-400,999");

  ASSERT_TRUE(ParseEventOption("--touch-px", "0:960,540", &e, &error));
  EXPECT_TRUE(e.inPixels);
  ASSERT_TRUE(ParseEventOption("--zoom", "30:1.1", &e, &error));
  EXPECT_EQ(e.zoom, 1.1f);  // the float a host would pass, not a twice-rounded double
  ASSERT_TRUE(ParseEventOption("--sensor", "5:-1", &e, &error));
  EXPECT_EQ(e.sensor, -1);
}

TEST(EventOptions, RejectMalformedValuesNamingTheOption) {
  const std::pair<const char*, const char*> bad[] = {
      {"--touch", "12:1"},  {"--touch", "12:1,2,3"}, {"--touch", "-1:0,0"},
      {"--touch", "x:0,0"}, {"--touch", "12"},       {"--zoom", "3:fast"},
      {"--zoom", "3:nan"},  {"--sensor", "3:1.5"},   {"--touch-px", "1:2,"},
  };
  for (const auto& b : bad) {
    Event e;
    std::string error;
    EXPECT_FALSE(ParseEventOption(b.first, b.second, &e, &error)) << b.first << " " << b.second;
    EXPECT_EQ(error.rfind(std::string(b.first) + " " + b.second + ": expected ", 0), 0u) << error;
  }
}

TEST(EventScript, ReadsEveryKindSkippingCommentsAndBlankLines) {
  const std::string script =
      "# a session\n"
      "touch 0 -400 0\n"
      "\n"
      "zoom 30 1.5   # zoom in\n"
      "sensor 60 1\n"
      "size 60 1920x1080\n"
      "format 10 0\n"
      "stride 20 100\n"
      "stride 21 auto\n"
      "\treinit 120\r\n"
      "touch-px 121 10 20\n";
  std::vector<Event> events;
  std::string error;
  ASSERT_TRUE(ParseScript(script, "s.txt", &events, &error)) << error;
  ASSERT_EQ(events.size(), 9u);
  EXPECT_EQ(events[0].origin, "s.txt:2");
  EXPECT_EQ(events[1].kind, EventKind::kZoom);
  EXPECT_EQ(events[1].zoom, 1.5f);
  EXPECT_EQ(events[2].sensor, 1);
  EXPECT_EQ(events[3].width, 1920);
  EXPECT_EQ(events[3].height, 1080);
  EXPECT_EQ(events[4].format, 0);
  EXPECT_EQ(events[5].stride, 100);
  EXPECT_EQ(events[6].stride, kStrideAuto);
  EXPECT_EQ(events[7].kind, EventKind::kReinit);
  EXPECT_EQ(events[7].frame, 120);
  EXPECT_TRUE(events[8].inPixels);
  EXPECT_EQ(events[8].origin, "s.txt:11");
}

TEST(EventScript, ErrorsNameFileLineAndExpectedForm) {
  const std::pair<const char*, const char*> cases[] = {
      {"touch 0 1\n", "s.txt:1: expected 'touch FRAME X Y'"},
      {"# ok\nswipe 3 1 2\n", "s.txt:2: unknown event 'swipe'"},
      {"size 4 1920*1080\n", "s.txt:1: expected 'size FRAME WxH'"},
      {"stride 4 -2\n", "s.txt:1: expected 'stride FRAME N|auto'"},
      {"reinit 4 now\n", "s.txt:1: expected 'reinit FRAME'"},
      {"zoom\n", "s.txt:1: expected 'zoom FRAME RATIO'"},
  };
  for (const auto& c : cases) {
    std::vector<Event> events;
    std::string error;
    EXPECT_FALSE(ParseScript(c.first, "s.txt", &events, &error));
    EXPECT_EQ(error, c.second);
  }
}

// The engine's own conversion of a request to frame pixels (at resize rate 1).
int EnginePixel(int focus, int size) {
  return static_cast<int>(static_cast<float>((focus + 1000) * size) / 2000.0f);
}

TEST(EventResolution, PixelTouchesLandOnTheirPixelThroughTheEnginesConversion) {
  for (int size : {480, 640, 720, 1080, 1280, 1920}) {
    for (int p = 0; p < size; ++p) {
      ASSERT_EQ(EnginePixel(PixelToFocus(p, size), size), p) << p << " of " << size;
    }
  }
  EXPECT_EQ(PixelToFocus(0, 1920), -1000);
  EXPECT_EQ(PixelToFocus(960, 1920), 0);
  EXPECT_DOUBLE_EQ(FocusToPixel(0, 1080), 540.0);
}

TEST(EventResolution, ConvertsChecksRangeAndKeepsOrderWithinAFrame) {
  std::vector<Event> events(4);
  events[0].frame = 5;
  events[0].kind = EventKind::kZoom;
  events[1].frame = 2;
  events[1].kind = EventKind::kTouch;
  events[1].inPixels = true;
  events[1].x = 960;
  events[1].y = 0;
  events[2].frame = 5;
  events[2].kind = EventKind::kReinit;
  events[3].frame = 0;
  events[3].kind = EventKind::kSensor;
  std::string error;
  ASSERT_TRUE(ResolveEvents(&events, 1920, 1080, 6, &error)) << error;
  EXPECT_EQ(events[0].kind, EventKind::kSensor);
  EXPECT_EQ(events[1].kind, EventKind::kTouch);
  EXPECT_EQ(events[1].x, 0);
  EXPECT_EQ(events[1].y, -1000);
  EXPECT_FALSE(events[1].inPixels);
  EXPECT_EQ(events[2].kind, EventKind::kZoom);
  EXPECT_EQ(events[3].kind, EventKind::kReinit);

  std::vector<Event> late(1);
  late[0].frame = 6;
  late[0].origin = "s.txt:3";
  EXPECT_FALSE(ResolveEvents(&late, 1920, 1080, 6, &error));
  EXPECT_EQ(error, "s.txt:3: event at frame 6, but the clip has 6 frames");
  EXPECT_TRUE(ResolveEvents(&late, 1920, 1080, -1, &error));  // a stream's length is unknown

  std::vector<Event> outside(1);
  outside[0].inPixels = true;
  outside[0].x = 1920;
  outside[0].origin = "--touch-px 0:1920,0";
  EXPECT_FALSE(ResolveEvents(&outside, 1920, 1080, 6, &error));
  EXPECT_EQ(error, "--touch-px 0:1920,0: touch outside the 1920x1080 input");
}

}  // namespace
}  // namespace plovix_replay
