#include "soak.h"

#include <time.h>

#include <chrono>

#include "memory_use.h"
#include "plovixengine.h"
#include "scene.h"
#include "replay/sim_clock.h"

namespace soak {

namespace {

constexpr int32_t kFormatNv21 = 2;
constexpr int32_t kSensor4x3 = 0;
constexpr int64_t kClipStartMs = 1700000000000;
constexpr int64_t kFramesPerSecond = 30;
constexpr uint32_t kWideSeed = 7, kFullSeed = 9;
constexpr int kPriorityInfo = 4;

double ThreadCpuMs() {
  timespec ts{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
  return static_cast<double>(ts.tv_sec) * 1e3 + static_cast<double>(ts.tv_nsec) / 1e6;
}

void CountMessage(int priority, const char* /*tag*/, const char* /*text*/, void* user) {
  Result* r = static_cast<Result*>(user);
  ++(priority == kPriorityInfo ? r->infoMessages : r->errorMessages);
}

class Soak {
 public:
  explicit Soak(Result* result)
      : result_(result), engine_(create_plovix_handle()), wide_(kWideWidth, kWideHeight, kWideSeed), full_(kFullWidth, kFullHeight, kFullSeed) {
    rec_.nFormat = kFormatNv21;
    rec_.nSensorType = kSensor4x3;
    plovix_set_log_callback(&CountMessage, result_);
    init_plovix(engine_);
  }
  ~Soak() {
    deinit_plovix(engine_);
    destroy_plovix_handle(engine_);
    plovix_set_log_callback(nullptr, nullptr);
  }
  Soak(const Soak&) = delete;
  Soak& operator=(const Soak&) = delete;

  void Frame(int64_t frame);
  void Finish();

 private:
  int Process(const Step& s, int64_t frame);
  void CheckPhase(const Step& s, int64_t frame, int state);
  void Fail(int64_t frame, Phase phase, int expected, int got);
  void SampleMemory(const Step& s, int64_t frame);

  Result* result_;
  void* engine_;
  Canvas wide_;
  Canvas full_;
  PlovixStruct rec_{};
  bool visited_ = false;
};

void Soak::Frame(int64_t frame) {
  const Step s = StepAt(frame);
  if (s.reinitBefore) {
    deinit_plovix(engine_);
    init_plovix(engine_);
  }
  const int state = Process(s, frame);
  ++result_->frames;
  CheckPhase(s, frame, state);
  if (s.lastOfPhase) SampleMemory(s, frame);
}

// Returns the reported state, or 0 for a refused frame.
int Soak::Process(const Step& s, int64_t frame) {
  Canvas& c = s.wide ? wide_ : full_;
  c.Show(s.disc);
  rec_.pY = c.luma();
  rec_.pUV = c.chroma();
  rec_.nWidth = rec_.nStride = c.width();
  rec_.nHeight = c.height();
  rec_.fZoomRatio = s.zoom;
  if (s.touch) {
    rec_.bTrackRequest = 1;
    rec_.nRequestX = ToFocusUnits(s.disc.cx, c.width());
    rec_.nRequestY = ToFocusUnits(s.disc.cy, c.height());
  }
  plovix_replay_clock_set_ms(kClipStartMs + frame * 1000 / kFramesPerSecond);

  const double cpu0 = ThreadCpuMs();
  const auto t0 = std::chrono::steady_clock::now();
  const int ret = process_plovix(engine_, &rec_);
  const auto t1 = std::chrono::steady_clock::now();
  const double cpu = ThreadCpuMs() - cpu0;
  result_->times.Add(std::chrono::duration<double, std::milli>(t1 - t0).count(), cpu, frame);

  if (ret != 0) {
    ++result_->refused;
    return 0;
  }
  if (rec_.nTrackState >= 1 && rec_.nTrackState <= 3) ++result_->states[rec_.nTrackState];
  return rec_.nTrackState;
}

void Soak::CheckPhase(const Step& s, int64_t frame, int state) {
  const PhaseInfo& info = InfoOf(s.phase);
  if (s.frameInPhase == 0) visited_ = false;
  visited_ = visited_ || state == info.mustVisit;
  if (!s.lastOfPhase) return;
  ++result_->phasesDone;
  if (s.phase == static_cast<Phase>(kPhaseCount - 1)) ++result_->cyclesDone;
  if (state != info.endState) Fail(frame, s.phase, info.endState, state);
  if (info.mustVisit != 0 && !visited_) Fail(frame, s.phase, info.mustVisit, 0);
}

void Soak::Fail(int64_t frame, Phase phase, int expected, int got) {
  if (result_->phaseFailures < kMaxRecordedFailures) {
    result_->recorded[result_->phaseFailures] = PhaseFailure{frame, phase, expected, got};
  }
  ++result_->phaseFailures;
}

// Samples are taken at phase ends only, so that every cycle is measured at the same points.
void Soak::SampleMemory(const Step& s, int64_t frame) {
  const int64_t rss = ResidentKb();
  ++result_->memorySamples;
  const bool cycleEnd = s.phase == static_cast<Phase>(kPhaseCount - 1);
  if (s.cycle < kWarmupCycles) {
    if (rss > result_->rssWarmupKb) result_->rssWarmupKb = rss;
    if (cycleEnd && HeapInUseBytes() > result_->heapWarmupBytes) result_->heapWarmupBytes = HeapInUseBytes();
    return;
  }
  if (rss > result_->rssMaxKb) {
    result_->rssMaxKb = rss;
    result_->rssMaxFrame = frame;
  }
  if (!cycleEnd) return;
  const int64_t heap = HeapInUseBytes();
  if (heap > result_->heapMaxBytes) {
    result_->heapMaxBytes = heap;
    result_->heapMaxFrame = frame;
  }
}

void Soak::Finish() {
  result_->rssEndKb = ResidentKb();
  ++result_->memorySamples;
  if (result_->rssEndKb > result_->rssMaxKb) {
    result_->rssMaxKb = result_->rssEndKb;
    result_->rssMaxFrame = result_->frames;
  }
}

}  // namespace

int64_t MinFrames() { return (kWarmupCycles + 1) * static_cast<int64_t>(CycleLength()); }

void Run(int64_t frames, Result* result) {
  Soak soak(result);
  for (int64_t f = 0; f < frames; ++f) soak.Frame(f);
  soak.Finish();
}

}  // namespace soak
