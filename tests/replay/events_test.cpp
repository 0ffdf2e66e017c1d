#include "events.h"

#include "gtest/gtest.h"

namespace plovix_replay {
namespace {

TEST(EventOptions, ParseFrameAndValues) {
  Event e;
  std::string error;
  ASSERT_TRUE(ParseEventOption("--touch", "12:-400,999", &e, &error)) << error;
  EXPECT_EQ(e.frame, 12);
  EXPECT_EQ(e.x, -400);
  EXPECT_EQ(e.y, 999);
  EXPECT_EQ(e.origin, "--touch 12:-400,999");
  ASSERT_TRUE(ParseEventOption("--zoom", "30:1.1", &e, &error));
  EXPECT_EQ(e.zoom, 1.1f);  // the float a host would pass, not a twice-rounded double
}

TEST(EventOptions, RejectMalformedValuesNamingTheOption) {
  const std::pair<const char*, const char*> bad[] = {
      {"--touch", "12:1"},  {"--touch", "12:1,2,3"}, {"--touch", "-1:0,0"},
      {"--touch", "x:0,0"}, {"--zoom", "3:nan"},     {"--sensor", "3:1.5"},
      {"--touch-px", "1:2,"},
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
      "size 60 1920x1080\n"
      "stride 21 auto\n"
      "\treinit 120\r\n"
      "touch-px 121 10 20\n";
  std::vector<Event> events;
  std::string error;
  ASSERT_TRUE(ParseScript(script, "s.txt", &events, &error)) << error;
  ASSERT_EQ(events.size(), 6u);
  EXPECT_EQ(events[0].origin, "s.txt:2");
  EXPECT_EQ(events[1].zoom, 1.5f);
  EXPECT_EQ(events[2].height, 1080);
  EXPECT_EQ(events[3].stride, kStrideAuto);
  EXPECT_EQ(events[4].kind, EventKind::kReinit);
  EXPECT_EQ(events[4].frame, 120);
  EXPECT_TRUE(events[5].inPixels);
  EXPECT_EQ(events[5].origin, "s.txt:8");
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

TEST(EventResolution, PixelTouchesLandOnTheirPixelThroughTheEnginesConversion) {
  // The engine's own conversion of a request to frame pixels (at resize rate 1).
  auto enginePixel = [](int focus, int size) {
    return static_cast<int>(static_cast<float>((focus + 1000) * size) / 2000.0f);
  };
  for (int size : {480, 720, 1080, 1920}) {
    for (int p = 0; p < size; ++p) {
      ASSERT_EQ(enginePixel(PixelToFocus(p, size), size), p) << p << " of " << size;
    }
  }
}

TEST(EventResolution, ConvertsPixelsAndKeepsOrderWithinAFrame) {
  std::vector<Event> events;
  std::string error;
  ASSERT_TRUE(ParseScript("zoom 5 2\ntouch-px 2 960 0\nreinit 5\nsensor 0 1\n", "s.txt", &events,
                          &error));
  ASSERT_TRUE(ResolveEvents(&events, 1920, 1080, 6, &error)) << error;
  const EventKind sorted[] = {EventKind::kSensor, EventKind::kTouch, EventKind::kZoom,
                              EventKind::kReinit};
  for (size_t i = 0; i < events.size(); ++i) EXPECT_EQ(events[i].kind, sorted[i]) << i;
  EXPECT_EQ(events[1].x, 0);
  EXPECT_EQ(events[1].y, -1000);
  EXPECT_FALSE(events[1].inPixels);
}

TEST(EventResolution, RefusesEventsPastTheClipOrTouchesOutsideIt) {
  const struct {
    const char* script;
    long frames;  // -1: a stream of unknown length
    const char* error;
  } cases[] = {
      {"zoom 6 2\n", 6, "s.txt:1: event at frame 6, but the clip has 6 frames"},
      {"zoom 6 2\n", -1, ""},
      {"touch-px 0 1920 0\n", 6, "s.txt:1: touch outside the 1920x1080 input"},
      {"touch-px 0 0 1080\n", -1, "s.txt:1: touch outside the 1920x1080 input"},
  };
  for (const auto& c : cases) {
    std::vector<Event> events;
    std::string error;
    ASSERT_TRUE(ParseScript(c.script, "s.txt", &events, &error)) << error;
    EXPECT_EQ(ResolveEvents(&events, 1920, 1080, c.frames, &error), *c.error == '\0') << c.script;
    EXPECT_EQ(error, c.error) << c.script;
  }
}

}  // namespace
}  // namespace plovix_replay
