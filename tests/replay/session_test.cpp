#include "session.h"

#include <sys/time.h>

#include <sstream>


#include "gtest/gtest.h"

namespace plovix_replay {
namespace {

constexpr int kW = 320;
constexpr int kH = 240;

// Grey frames with an orange disc at x = 80 + speed * frame; optionally of unknown length.
class DiscSource : public FrameSource {
 public:
  DiscSource(long frames, bool known, int speed = 0)
      : frames_(frames), known_(known), speed_(speed) {}
  int Width() const override { return kW; }
  int Height() const override { return kH; }
  FrameRate Rate() const override { return {30, 1}; }
  long KnownFrameCount() const override { return known_ ? frames_ : -1; }
  ReadStatus Read(Picture* p, std::string*) override {
    if (next_ >= frames_) return ReadStatus::kEnd;
    ResizePicture(p, kW, kH);
    std::fill(p->y.begin(), p->y.end(), 120);
    std::fill(p->u.begin(), p->u.end(), 128);
    std::fill(p->v.begin(), p->v.end(), 128);
    const int cx = 80 + speed_ * static_cast<int>(next_);
    for (int y = 0; y < kH; ++y) {
      for (int x = 0; x < kW; ++x) {
        if ((x - cx) * (x - cx) + (y - 120) * (y - 120) > 20 * 20) continue;
        p->y[y * kW + x] = 110;
        p->u[(y / 2) * (kW / 2) + x / 2] = 80;
        p->v[(y / 2) * (kW / 2) + x / 2] = 200;
      }
    }
    ++next_;
    return ReadStatus::kFrame;
  }

 private:
  long frames_;
  bool known_;
  int speed_;
  long next_ = 0;
};

class Recorder : public FrameObserver {
 public:
  bool OnFrame(const FrameResult& r, const Picture&, std::string*) override {
    results.push_back(r);
    timeval tv;
    gettimeofday(&tv, nullptr);
    clockMs.push_back(static_cast<int64_t>(tv.tv_sec) * 1000 + tv.tv_usec / 1000);
    return true;
  }
  bool OnFinish(long, const std::vector<EngineMessage>& messages, std::string*) override {
    finalMessages = messages;
    return true;
  }
  std::vector<FrameResult> results;
  std::vector<int64_t> clockMs;
  std::vector<EngineMessage> finalMessages;
};

bool HasPrefix(const std::vector<EngineMessage>& ms, const std::string& prefix) {
  for (const EngineMessage& m : ms) {
    if (m.text.rfind(prefix, 0) == 0) return true;
  }
  return false;
}

// Runs the source through a session with the events of a script, recording every frame.
bool RunScript(DiscSource* source, const std::string& script, Recorder* rec, std::string* error) {
  std::vector<Event> events;
  EXPECT_TRUE(ParseScript(script, "s.txt", &events, error)) << *error;
  Session session(source, events, SessionOptions());
  session.AddObserver(rec);
  return session.Run(error);
}

TEST(Session, EventsSetTheRecordFromTheirFrameOnAndAReinitKeepsIt) {
  DiscSource source(10, true);
  Recorder rec;
  std::string error;
  ASSERT_TRUE(RunScript(&source,
                        "zoom 2 1.5\nsensor 3 1\nstride 4 400\nstride 5 auto\nformat 6 0\n"
                        "format 7 3\nsize 8 160x120\nreinit 9\n",
                        &rec, &error))
      << error;
  ASSERT_EQ(rec.results.size(), 10u);
  // Per frame: zoom, sensor, stride, format, size of record and of the frame fed, ret.
  const char* expect[] = {
      "1 -1 320 2 320x240 320x240 0", "1 -1 320 2 320x240 320x240 0",
      "1.5 -1 320 2 320x240 320x240 0", "1.5 1 320 2 320x240 320x240 0",
      "1.5 1 400 2 320x240 320x240 0", "1.5 1 320 2 320x240 320x240 0",
      "1.5 1 320 0 320x240 320x240 -1", "1.5 1 320 3 320x240 320x240 0",
      "1.5 1 160 3 160x120 160x120 0", "1.5 1 160 3 160x120 160x120 0",
  };
  for (size_t i = 0; i < rec.results.size(); ++i) {
    const FrameResult& f = rec.results[i];
    const PlovixStruct& r = f.record;
    std::ostringstream got;
    got << r.fZoomRatio << ' ' << r.nSensorType << ' ' << r.nStride << ' ' << r.nFormat << ' '
        << r.nWidth << 'x' << r.nHeight << ' ' << f.width << 'x' << f.height << ' ' << f.ret;
    EXPECT_EQ(got.str(), expect[i]) << "frame " << i;
  }
  // Engine messages go with the frame where they happen; the last deinit comes at the finish.
  EXPECT_TRUE(HasPrefix(rec.results[0].messages, "PlovixPlugin init called"));
  EXPECT_FALSE(HasPrefix(rec.results[1].messages, "PlovixPlugin init called"));
  EXPECT_TRUE(HasPrefix(rec.results[9].messages, "PlovixPlugin deinit called"));
  EXPECT_TRUE(HasPrefix(rec.results[9].messages, "PlovixPlugin init called"));
  EXPECT_TRUE(HasPrefix(rec.finalMessages, "PlovixPlugin deinit called"));
}

TEST(Session, EngineSeesTheClipsTimeSoVelocitiesMatchTheFrameRate) {
  DiscSource source(20, true, 4);  // 4 pixels per frame at 30 frames per second: 120 per second
  Recorder rec;
  std::string error;
  ASSERT_TRUE(RunScript(&source, "touch 0 -500 0\n", &rec, &error)) << error;
  for (size_t i = 0; i < rec.clockMs.size(); ++i) {
    EXPECT_EQ(rec.clockMs[i], kClockBaseMs + static_cast<int64_t>(i) * 1000 / 30);
  }
  EXPECT_TRUE(rec.results[0].touched);
  EXPECT_FALSE(rec.results[1].touched);
  // Once the predictor has settled the speed is the disc's, give or take the frame jitter of a
  // 33/34 ms clock and the tracker's pixel steps. A real clock here would give 0 or thousands.
  const PlovixStruct& late = rec.results.back().record;
  ASSERT_EQ(late.nTrackState, PLOVIX_STATE_TRACKING);
  EXPECT_GT(late.nVelocityX, 60);
  EXPECT_LT(late.nVelocityX, 240);
}

TEST(Session, EventsPastTheEndOfAStreamFailTheRun) {
  DiscSource shortStream(3, false);
  Recorder rec;
  std::string error;
  EXPECT_FALSE(RunScript(&shortStream, "zoom 10 2\n", &rec, &error));
  EXPECT_EQ(error, "s.txt:1: event at frame 10, but the clip has 3 frames");
}

}  // namespace
}  // namespace plovix_replay
