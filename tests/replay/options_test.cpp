#include "options.h"

#include "gtest/gtest.h"
#include "replay_test_util.h"

namespace plovix_replay {
namespace {

bool Parse(std::vector<std::string> args, Options* o, std::string* error) {
  args.insert(args.begin(), "plovix-replay");
  return ParseOptions(args, o, error);
}

TEST(Options, ValuesInBothSpellingsAndEventsInCommandLineOrder) {
  const std::string script = replay_test::WriteFile("s.txt", "zoom 3 2.0\n");
  Options o;
  std::string error;
  ASSERT_TRUE(Parse({"--raw", "1280x720", "--format=nv12", "--fps", "30000/1001", "--touch",
                     "0:-400,0", "--script", script, "--sensor=9:1", "--no-annotated", "dump.nv12"},
                    &o, &error))
      << error;
  EXPECT_EQ(o.input, "dump.nv12");
  EXPECT_EQ(o.rawHeight, 720);
  EXPECT_EQ(o.packing, ChromaOrder::kUV);
  EXPECT_EQ(o.formatCode, 7);
  EXPECT_EQ(o.fps.den, 1001);
  EXPECT_FALSE(o.annotated);
  ASSERT_EQ(o.events.size(), 3u);
  EXPECT_EQ(o.events[0].kind, EventKind::kTouch);
  EXPECT_EQ(o.events[1].kind, EventKind::kZoom);
  EXPECT_EQ(o.events[2].kind, EventKind::kSensor);

  Options defaults;
  ASSERT_TRUE(Parse({"-"}, &defaults, &error)) << error;
  EXPECT_EQ(defaults.packing, ChromaOrder::kVU);
  EXPECT_EQ(defaults.formatCode, 2);
}

TEST(Options, BadCommandLinesSayWhatIsWrong) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"--speed", "2", "a.y4m"}, "--speed: unknown option (see --help)"},
      {{"a.y4m", "--out"}, "--out: missing value"},
      {{"a.y4m", "b.y4m"}, "b.y4m: more than one input (already have a.y4m)"},
      {{"--demo", "a.y4m"}, "a.y4m: --demo takes no input file"},
      {{}, "no input: give a .y4m file, - for a Y4M stream on stdin, or --demo (see --help)"},
      {{"--format", "yuv420p", "a.y4m"}, "--format yuv420p: expected nv21 or nv12"},
      {{"--raw", "1280", "a"}, "--raw 1280: expected WxH"},
      {{"--fps", "0", "a.y4m"}, "--fps 0: expected a positive rate, N or N/D"},
      {{"--script", "/nonexistent/s.txt", "a.y4m"}, "/nonexistent/s.txt: cannot open script"},
  };
  for (const auto& c : cases) {
    Options o;
    std::string error;
    EXPECT_FALSE(Parse(c.first, &o, &error)) << c.second;
    EXPECT_EQ(error, c.second);
  }
}

}  // namespace
}  // namespace plovix_replay
