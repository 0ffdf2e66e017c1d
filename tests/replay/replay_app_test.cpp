#include "replay_app.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "demo_clip.h"
#include "replay_test_util.h"

namespace plovix_replay {
namespace {

namespace fs = std::filesystem;
using replay_test::MakeY4m;
using replay_test::TempPath;
using replay_test::WriteFile;

std::string ReadAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

Options ClipOptions(const std::string& input, const std::string& out) {
  Options o;
  o.input = input;
  o.outDir = out;
  o.contactEvery = 2;
  return o;
}

TEST(ReplayApp, WritesEveryOutputForAClip) {
  const std::string out = TempPath("out");
  Options o = ClipOptions(WriteFile("clip.y4m", MakeY4m(64, 48, 5)), out);
  o.events.resize(1);
  o.events[0].frame = 1;
  RunOutcome outcome;
  std::string error;
  ASSERT_TRUE(RunReplay(o, false, &outcome, &error)) << error;
  EXPECT_EQ(outcome.frames, 5);
  EXPECT_EQ(outcome.touches, 1);

  const std::string csv = ReadAll(out + "/frames.csv");
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 6);
  EXPECT_EQ(ReadAll(out + "/engine.log").rfind("0 4 PlovixPlugin init called", 0), 0u);
  const std::string video = ReadAll(out + "/annotated.y4m");
  const std::string header = "YUV4MPEG2 W64 H48 F30:1 Ip A1:1 C420jpeg\n";
  EXPECT_EQ(video.substr(0, header.size()), header);
  EXPECT_EQ(video.size(), header.size() + 5 * (6 + 64 * 48 * 3 / 2));
  EXPECT_EQ(ReadAll(out + "/contact.png").substr(0, 8), "\x89PNG\r\n\x1a\n");
  EXPECT_NE(ReadAll(out + "/report.html").find("<svg"), std::string::npos);
  EXPECT_FALSE(fs::exists(out + "/truth.csv"));
  for (const auto& entry : fs::directory_iterator(out)) {
    EXPECT_NE(entry.path().filename().string()[0], '.') << "temporary file left: " << entry.path();
  }
}

TEST(ReplayApp, BadInputsFailWithOneClearLineAndLeaveNoOutput) {
  const std::string full = MakeY4m(64, 48, 3);
  const std::string cut = WriteFile("cut.y4m", full.substr(0, full.size() - 100));
  const std::string missing = TempPath("missing.y4m");
  Options late = ClipOptions(WriteFile("clip.y4m", full), "");
  late.events.resize(1);
  late.events[0].frame = 3;
  late.events[0].origin = "--zoom 3:2";
  struct Case {
    Options options;
    bool asStdin;  // read as standard input, whose size is not known up front
    std::string error;
  };
  const Case cases[] = {
      {ClipOptions(missing, ""), false, missing + ": cannot open: No such file or directory"},
      {ClipOptions(cut, ""), false, cut + ": frame 2 is truncated (4508 of 4608 bytes)"},
      {ClipOptions(cut, ""), true, "stdin: frame 2 is truncated (4508 of 4608 bytes)"},
      {late, false, "--zoom 3:2: event at frame 3, but the clip has 3 frames"},
  };
  for (Case c : cases) {
    c.options.outDir = TempPath("out");
    if (c.asStdin) {
      ASSERT_NE(std::freopen(c.options.input.c_str(), "rb", stdin), nullptr);
      c.options.input = "-";
    }
    RunOutcome outcome;
    std::string error;
    EXPECT_FALSE(RunReplay(c.options, false, &outcome, &error));
    EXPECT_EQ(error, c.error);
    EXPECT_FALSE(fs::exists(c.options.outDir)) << c.error;
  }
}

// The demo's numbers as measured with the engine at the time of writing. The clip and the clock are
// deterministic, so any change comes from the engine; the tolerances let small tracking changes
// through but catch a demo that stops tracking, a broken truth, or a clock that is not simulated:
// frame counts within 10 frames, errors in pixels within 15 %.
TEST(ReplayApp, DemoTracksTheObjectAsMeasured) {
  Options o;
  o.demo = true;
  o.annotated = false;
  o.outDir = replay_test::TempPath("demo");
  RunOutcome r;
  std::string error;
  ASSERT_TRUE(RunReplay(o, false, &r, &error)) << error;
  EXPECT_EQ(r.frames, kDemoFrames);
  EXPECT_EQ(r.touches, 1);
  ASSERT_TRUE(r.hasTruth);
  EXPECT_NEAR(r.states.tracking, 237, 10);
  EXPECT_NEAR(r.states.tempLost, 63, 10);
  EXPECT_EQ(r.states.notTracking + r.states.tracking + r.states.tempLost, kDemoFrames);
  EXPECT_EQ(r.accuracy.visibleFrames, 266);  // depends on the clip alone
  EXPECT_NEAR(r.accuracy.meanError, 64.3, 64.3 * 0.15);
  EXPECT_NEAR(r.accuracy.p90Error, 332.4, 332.4 * 0.15);
  EXPECT_NEAR(r.accuracy.containedFrames, 219, 10);
  EXPECT_TRUE(std::filesystem::exists(o.outDir + "/truth.csv"));
  EXPECT_FALSE(std::filesystem::exists(o.outDir + "/annotated.y4m"));
}

}  // namespace
}  // namespace plovix_replay
