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
  const std::string clip = WriteFile("clip.y4m", MakeY4m(64, 48, 5));
  const std::string out = TempPath("out");
  Options o = ClipOptions(clip, out);
  Event touch;
  touch.frame = 1;
  touch.origin = "--touch 1:0,0";
  o.events.push_back(touch);
  RunOutcome outcome;
  std::string error;
  ASSERT_TRUE(RunReplay(o, false, &outcome, &error)) << error;
  EXPECT_EQ(outcome.frames, 5);
  EXPECT_EQ(outcome.touches, 1);
  EXPECT_FALSE(outcome.hasTruth);

  const std::string csv = ReadAll(out + "/frames.csv");
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 6);
  EXPECT_EQ(csv.rfind("4,0,", csv.size() - 2) != std::string::npos, true);
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
  const std::string clip = WriteFile("clip.y4m", MakeY4m(64, 48, 3));
  const std::string cut = MakeY4m(64, 48, 3);
  const std::string streamCut = WriteFile("cut.y4m", cut.substr(0, cut.size() - 100));
  struct Case {
    Options options;
    std::string error;
  };
  std::vector<Case> cases;
  const std::string missing = TempPath("missing.y4m");
  cases.push_back({ClipOptions(missing, ""), missing + ": cannot open: No such file or directory"});
  cases.push_back(
      {ClipOptions(streamCut, ""), streamCut + ": frame 2 is truncated (4508 of 4608 bytes)"});
  Options late = ClipOptions(clip, "");
  Event e;
  e.frame = 3;
  e.origin = "--zoom 3:2";
  late.events.push_back(e);
  cases.push_back({late, "--zoom 3:2: event at frame 3, but the clip has 3 frames"});
  for (Case& c : cases) {
    c.options.outDir = TempPath("out");
    RunOutcome outcome;
    std::string error;
    EXPECT_FALSE(RunReplay(c.options, false, &outcome, &error));
    EXPECT_EQ(error, c.error);
    EXPECT_FALSE(fs::exists(c.options.outDir)) << c.error;
  }
}

TEST(ReplayApp, AStreamCutShortFailsAfterTheFactAndStillLeavesNoOutput) {
  const std::string full = MakeY4m(64, 48, 3);
  Options o = ClipOptions(WriteFile("cut.y4m", full.substr(0, full.size() - 1)), TempPath("out"));
  // Read as standard input, whose size is not known up front.
  ASSERT_NE(std::freopen(o.input.c_str(), "rb", stdin), nullptr);
  o.input = "-";
  RunOutcome outcome;
  std::string error;
  EXPECT_FALSE(RunReplay(o, false, &outcome, &error));
  EXPECT_EQ(error, "stdin: frame 2 is truncated (4607 of 4608 bytes)");
  EXPECT_FALSE(fs::exists(o.outDir));
}

// The demo's numbers as measured with the engine at the time of writing. The clip and the clock are
// deterministic, so any change comes from the engine; the tolerances let small tracking changes
// through but catch a demo that stops tracking, a broken truth, or a clock that is not simulated.
constexpr long kDemoTracking = 237;
constexpr long kDemoTempLost = 63;
constexpr long kDemoStateTolerance = 10;  // frames
constexpr double kDemoMeanError = 64.3;   // pixels
constexpr double kDemoP90Error = 332.4;
constexpr double kDemoErrorTolerance = 0.15;  // relative
constexpr long kDemoContained = 219;          // of 266 visible frames
constexpr long kDemoVisible = 266;

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
  EXPECT_NEAR(r.states.tracking, kDemoTracking, kDemoStateTolerance);
  EXPECT_NEAR(r.states.tempLost, kDemoTempLost, kDemoStateTolerance);
  EXPECT_EQ(r.states.notTracking + r.states.tracking + r.states.tempLost, kDemoFrames);
  EXPECT_EQ(r.accuracy.visibleFrames, kDemoVisible);  // depends on the clip alone
  EXPECT_NEAR(r.accuracy.meanError, kDemoMeanError, kDemoMeanError * kDemoErrorTolerance);
  EXPECT_NEAR(r.accuracy.p90Error, kDemoP90Error, kDemoP90Error * kDemoErrorTolerance);
  EXPECT_NEAR(r.accuracy.containedFrames, kDemoContained, kDemoStateTolerance);
  EXPECT_TRUE(std::filesystem::exists(o.outDir + "/truth.csv"));
  EXPECT_FALSE(std::filesystem::exists(o.outDir + "/annotated.y4m"));
}

}  // namespace
}  // namespace plovix_replay
