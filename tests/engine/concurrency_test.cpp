// The host may call init, deinit and destroy from another thread than the camera thread, as long as
// no call overlaps a process_plovix call. These tests hand the engine back and forth between two
// threads that way, so that ThreadSanitizer and LeakSanitizer see the pattern a camera app uses.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

#include "plovixengine.h"
#include "support/test_support.h"

namespace {

using plovix_test::Frame;

constexpr int kWidth = 1280, kHeight = 720;
constexpr int kFrames = 300;
constexpr int kReinitEvery = 25;
constexpr int kDiscRadius = 60;
constexpr uint8_t kDiscY = 82, kDiscV = 220, kDiscU = 96;  // NV21 pairs are (V, U)

// The smallest focus unit that the engine maps back into pixel p.
int ToFocusUnits(int p, int size) { return (p * 2000 + size - 1) / size - 1000; }

// Everything a frame reports except the velocities, which follow the real time of day.
using Outcome = std::array<int, 12>;

// The host's script: a disc gliding right, touched on the first frame and again after every
// deinit + init, which come every kReinitEvery frames.
class Host {
 public:
  Host() : background_(plovix_test::MakeTexturedFrame(kWidth, kHeight, 7)), frame_(background_) {}

  // The control thread's turn before frame i (i == kFrames: after the last frame).
  void Control(int i) {
    if (i == 0) {
      engine_ = create_plovix_handle();
      init_plovix(engine_);
    } else if (i == kFrames) {
      destroy_plovix_handle(engine_);  // while tracking, without deinit
      engine_ = nullptr;
    } else if (i % kReinitEvery == 0) {
      deinit_plovix(engine_);
      init_plovix(engine_);
    }
  }

  // The camera thread's turn: frame i.
  Outcome Camera(int i) {
    const int cx = 300 + 2 * i;
    const int cy = 360 + static_cast<int>(std::lround(40.0 * std::sin(i * 0.05)));
    frame_.y = background_.y;  // same size: no allocation
    frame_.uv = background_.uv;
    plovix_test::PaintDisc(&frame_, cx, cy, kDiscRadius, kDiscY, kDiscV, kDiscU);
    PlovixStruct rec = plovix_test::MakeRecord(&frame_);
    if (i % kReinitEvery == 0) {
      rec.bTrackRequest = 1;
      rec.nRequestX = ToFocusUnits(cx, kWidth);
      rec.nRequestY = ToFocusUnits(cy, kHeight);
    }
    const int ret = process_plovix(engine_, &rec);
    return {ret,           rec.nTrackState,   rec.nLeft,          rec.nRight,         rec.nTop,     rec.nBottom,
            rec.nPredictLeft, rec.nPredictRight, rec.nPredictTop, rec.nPredictBottom, rec.nOffsetX, rec.nOffsetY};
  }

 private:
  const Frame background_;
  Frame frame_;
  void* engine_ = nullptr;
};

std::vector<Outcome> RunOnOneThread() {
  Host host;
  std::vector<Outcome> out;
  for (int i = 0; i < kFrames; ++i) {
    host.Control(i);
    out.push_back(host.Camera(i));
  }
  host.Control(kFrames);
  return out;
}

// Strict alternation: the control thread's turn before every frame and after the last one, the
// camera thread's turn for every frame.
class Turns {
 public:
  enum Who { kControl, kCamera };
  void WaitFor(Who who) {
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait(lock, [&] { return turn_ == who; });
  }
  void Pass(Who to) {
    {
      std::lock_guard<std::mutex> lock(mutex_);
      turn_ = to;
    }
    changed_.notify_all();
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  Who turn_ = kControl;
};

std::vector<Outcome> RunOnTwoThreads() {
  Host host;
  Turns turns;
  std::vector<Outcome> out(kFrames);
  std::thread control([&] {
    for (int i = 0; i <= kFrames; ++i) {
      turns.WaitFor(Turns::kControl);
      host.Control(i);
      turns.Pass(Turns::kCamera);
    }
  });
  std::thread camera([&] {
    for (int i = 0; i < kFrames; ++i) {
      turns.WaitFor(Turns::kCamera);
      out[i] = host.Camera(i);
      turns.Pass(Turns::kControl);
    }
  });
  camera.join();
  control.join();
  return out;
}

class Concurrency : public plovix_test::TrackerTest {};

TEST_F(Concurrency, ReinitOnAnotherThreadBetweenFramesGivesTheSameResultsAsOneThread) {
  plovix_test::LogCapture quiet;
  const std::vector<Outcome> reference = RunOnOneThread();
  plovix_test::ResetTrackerGlobals();
  const std::vector<Outcome> threaded = RunOnTwoThreads();
  // The script keeps the object tracked on every frame, reinitialised ones included.
  for (int i = 0; i < kFrames; ++i) {
    ASSERT_EQ(reference[i][0], 0) << "frame " << i;
    ASSERT_EQ(reference[i][1], PLOVIX_STATE_TRACKING) << "frame " << i;
    ASSERT_EQ(threaded[i], reference[i]) << "frame " << i;
  }
}

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
int64_t HeapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<int64_t>(info.uordblks + info.hblkhd);
}
#else
// Sanitizers bring their own allocator; LeakSanitizer checks the same at exit instead.
int64_t HeapInUse() { return 0; }
#endif

void Discard(int, const char*, const char*, void*) {}

// Each round selects and tracks the disc, then destroys the engine without deinit. The templates
// are module-level and live on until the next selection replaces them at the same size, so from
// the second round on every round must end with the same heap. The allocator may hand out a free
// block whole when its rest would be under 32 bytes, hence a little slack.
TEST_F(Concurrency, DestroyWhileTrackingReleasesTheEngine) {
  constexpr int kRounds = 6;
  constexpr int kTrackedFrames = 8;
  constexpr int64_t kAllocatorSlackBytes = 256;
  plovix_set_log_callback(&Discard, nullptr);
  Host host;
  int64_t heapAfter[kRounds] = {};
  for (int round = 0; round < kRounds; ++round) {
    host.Control(0);
    for (int i = 0; i < kTrackedFrames; ++i) ASSERT_EQ(host.Camera(i)[1], PLOVIX_STATE_TRACKING) << i;
    host.Control(kFrames);
    heapAfter[round] = HeapInUse();
  }
  plovix_set_log_callback(nullptr, nullptr);
  for (int round = 2; round < kRounds; ++round) {
    EXPECT_LE(heapAfter[round], heapAfter[1] + kAllocatorSlackBytes) << "round " << round;
  }
}

}  // namespace
