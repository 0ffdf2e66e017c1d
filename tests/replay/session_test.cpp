#include "session.h"

#include <sys/time.h>

#include <cmath>
#include <functional>

#include "gtest/gtest.h"

namespace plovix_replay {
namespace {

constexpr int kW = 320;
constexpr int kH = 240;

// Grey frames with an orange disc at x = 80 + speed * frame; optionally of unknown length.
class DiscSource : public FrameSource {
 public:
  DiscSource(long frames, bool known, int speed = 0, long failAt = -1)
      : frames_(frames), known_(known), speed_(speed), failAt_(failAt) {}
  int Width() const override { return kW; }
  int Height() const override { return kH; }
  FrameRate Rate() const override { return {30, 1}; }
  long KnownFrameCount() const override { return known_ ? frames_ : -1; }
  ReadStatus Read(Picture* p, std::string* error) override {
    if (next_ == failAt_) {
      *error = "frame " + std::to_string(next_) + " is truncated";
      return ReadStatus::kError;
    }
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
  long failAt_;
  long next_ = 0;
};

class Recorder : public FrameObserver {
 public:
  bool OnFrame(const FrameResult& r, const Picture& fed, std::string*) override {
    results.push_back(r);
    fedSizes.push_back({fed.width, fed.height});
    timeval tv;
    gettimeofday(&tv, nullptr);
    clockMs.push_back(static_cast<int64_t>(tv.tv_sec) * 1000 + tv.tv_usec / 1000);
    return true;
  }
  bool OnFinish(long frames, const std::vector<EngineMessage>& messages, std::string*) override {
    finishedFrames = frames;
    finalMessages = messages;
    return true;
  }
  std::vector<FrameResult> results;
  std::vector<std::pair<int, int>> fedSizes;
  std::vector<int64_t> clockMs;
  long finishedFrames = -1;
  std::vector<EngineMessage> finalMessages;
};

Event MakeEvent(long frame, EventKind kind, std::function<void(Event*)> set = nullptr) {
  Event e;
  e.frame = frame;
  e.kind = kind;
  e.origin = "event@" + std::to_string(frame);
  if (set) set(&e);
  return e;
}

bool HasPrefix(const std::vector<EngineMessage>& ms, const std::string& prefix) {
  for (const EngineMessage& m : ms) {
    if (m.text.rfind(prefix, 0) == 0) return true;
  }
  return false;
}

TEST(Session, EventsSetTheRecordFromTheirFrameOn) {
  DiscSource source(10, true);
  std::vector<Event> events = {
      MakeEvent(2, EventKind::kZoom, [](Event* e) { e->zoom = 1.5f; }),
      MakeEvent(3, EventKind::kSensor, [](Event* e) { e->sensor = 1; }),
      MakeEvent(4, EventKind::kStride, [](Event* e) { e->stride = 400; }),
      MakeEvent(5, EventKind::kStride, [](Event* e) { e->stride = kStrideAuto; }),
      MakeEvent(6, EventKind::kFormat, [](Event* e) { e->format = 0; }),
      MakeEvent(7, EventKind::kFormat, [](Event* e) { e->format = 3; }),
      MakeEvent(8, EventKind::kSize,
                [](Event* e) {
                  e->width = 160;
                  e->height = 120;
                }),
  };
  Session session(&source, events, SessionOptions());
  Recorder rec;
  session.AddObserver(&rec);
  std::string error;
  ASSERT_TRUE(session.Run(&error)) << error;
  ASSERT_EQ(rec.results.size(), 10u);
  struct Expect {
    float zoom;
    int sensor, stride, format, width, ret;
  };
  const Expect expect[] = {
      {1.0f, -1, 320, 2, 320, 0}, {1.0f, -1, 320, 2, 320, 0}, {1.5f, -1, 320, 2, 320, 0},
      {1.5f, 1, 320, 2, 320, 0},  {1.5f, 1, 400, 2, 320, 0},  {1.5f, 1, 320, 2, 320, 0},
      {1.5f, 1, 320, 0, 320, -1}, {1.5f, 1, 320, 3, 320, 0},  {1.5f, 1, 160, 3, 160, 0},
      {1.5f, 1, 160, 3, 160, 0},
  };
  for (size_t i = 0; i < rec.results.size(); ++i) {
    SCOPED_TRACE(i);
    const PlovixStruct& r = rec.results[i].record;
    EXPECT_EQ(r.fZoomRatio, expect[i].zoom);
    EXPECT_EQ(r.nSensorType, expect[i].sensor);
    EXPECT_EQ(r.nStride, expect[i].stride);
    EXPECT_EQ(r.nFormat, expect[i].format);
    EXPECT_EQ(r.nWidth, expect[i].width);
    EXPECT_EQ(r.nHeight, expect[i].width * 3 / 4);
    EXPECT_EQ(rec.fedSizes[i].first, expect[i].width);
    EXPECT_EQ(rec.results[i].ret, expect[i].ret);
  }
}

TEST(Session, ReinitAndFinalDeinitMessagesGoWhereTheyHappen) {
  DiscSource source(4, true);
  Session session(&source, {MakeEvent(2, EventKind::kReinit)}, SessionOptions());
  Recorder rec;
  session.AddObserver(&rec);
  std::string error;
  ASSERT_TRUE(session.Run(&error)) << error;
  EXPECT_TRUE(HasPrefix(rec.results[0].messages, "PlovixPlugin init called"));
  EXPECT_FALSE(HasPrefix(rec.results[1].messages, "PlovixPlugin init called"));
  EXPECT_TRUE(HasPrefix(rec.results[2].messages, "PlovixPlugin deinit called"));
  EXPECT_TRUE(HasPrefix(rec.results[2].messages, "PlovixPlugin init called"));
  EXPECT_EQ(rec.finishedFrames, 4);
  EXPECT_TRUE(HasPrefix(rec.finalMessages, "PlovixPlugin deinit called"));
}

TEST(Session, EngineSeesTheClipsTimeSoVelocitiesMatchTheFrameRate) {
  constexpr int kSpeed = 4;  // pixels per frame at 30 frames per second: 120 pixels per second
  DiscSource source(20, true, kSpeed);
  Session session(&source, {MakeEvent(0, EventKind::kTouch, [](Event* e) { e->x = -500; })},
                  SessionOptions());
  Recorder rec;
  session.AddObserver(&rec);
  std::string error;
  ASSERT_TRUE(session.Run(&error)) << error;
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

TEST(Session, StreamErrorsAndEventsPastItsEndFailTheRun) {
  std::string error;
  DiscSource broken(5, false, 0, 3);
  SessionOptions named;
  named.sourceName = "clip.y4m";
  Session failing(&broken, {}, named);
  EXPECT_FALSE(failing.Run(&error));
  EXPECT_EQ(error, "clip.y4m: frame 3 is truncated");

  DiscSource shortStream(3, false);
  Session late(&shortStream, {MakeEvent(10, EventKind::kZoom)}, SessionOptions());
  EXPECT_FALSE(late.Run(&error));
  EXPECT_EQ(error, "event@10: event at frame 10, but the clip has 3 frames");
}

}  // namespace
}  // namespace plovix_replay
