#include "session.h"

#include <chrono>
#include <utility>

#include "scaler.h"
#include "sim_clock.h"

namespace plovix_replay {
namespace {

constexpr int kUnknownSensor = -1;
constexpr float kDefaultZoom = 1.0f;

void CollectMessage(int priority, const char* /*tag*/, const char* text, void* user) {
  static_cast<std::vector<EngineMessage>*>(user)->push_back({priority, text});
}

// Owns the engine handle and the log callback for the length of a session.
class EngineScope {
 public:
  explicit EngineScope(std::vector<EngineMessage>* sink) {
    plovix_set_log_callback(&CollectMessage, sink);
    handle_ = create_plovix_handle();
    init_plovix(handle_);
  }
  ~EngineScope() {
    Close();
    plovix_set_log_callback(nullptr, nullptr);
  }
  EngineScope(const EngineScope&) = delete;
  EngineScope& operator=(const EngineScope&) = delete;

  void* handle() const { return handle_; }
  void Close() {
    if (handle_ == nullptr) return;
    deinit_plovix(handle_);
    destroy_plovix_handle(handle_);
    handle_ = nullptr;
  }

 private:
  void* handle_ = nullptr;
};

int64_t FrameTimeMs(long index, FrameRate rate) {
  return kClockBaseMs + static_cast<int64_t>(index) * 1000 * rate.den / rate.num;
}

}  // namespace

struct Session::HostState {
  PlovixStruct record{};
  int width = 0;
  int height = 0;
  bool strideAuto = true;
  int stride = 0;
  int sensor = kUnknownSensor;
  float zoom = kDefaultZoom;
  int format = kFormatNv21;
  Picture scaled;
  std::vector<uint8_t> luma;
  std::vector<uint8_t> chroma;
};

Session::Session(FrameSource* source, std::vector<Event> events, SessionOptions options)
    : source_(source), events_(std::move(events)), options_(std::move(options)) {}

bool Session::Run(std::string* error) {
  nextEvent_ = 0;
  frames_ = 0;
  pending_.clear();
  long total = source_->KnownFrameCount();
  if (options_.maxFrames >= 0 && (total < 0 || total > options_.maxFrames)) {
    total = options_.maxFrames;
  }
  if (options_.realClock) {
    plovix_replay_clock_use_real();
  } else {
    plovix_replay_clock_set_ms(FrameTimeMs(0, options_.rate));
  }

  HostState host;
  host.width = options_.scaleWidth > 0 ? options_.scaleWidth : source_->Width();
  host.height = options_.scaleWidth > 0 ? options_.scaleHeight : source_->Height();
  host.format = options_.formatCode;

  bool ok = true;
  EngineScope engine(&pending_);
  Picture input;
  while (ok && (options_.maxFrames < 0 || frames_ < options_.maxFrames)) {
    std::string what;
    const ReadStatus status = source_->Read(&input, &what);
    if (status == ReadStatus::kEnd) break;
    if (status == ReadStatus::kError) {
      *error = options_.sourceName + ": " + what;
      ok = false;
      break;
    }
    ok = ProcessOne(engine.handle(), input, &host, error);
    if (ok && progress_) progress_(frames_, total);
  }
  engine.Close();
  const std::vector<EngineMessage> finalMessages = std::move(pending_);
  pending_.clear();
  if (!ok) return false;
  for (FrameObserver* o : observers_) {
    if (!o->OnFinish(frames_, finalMessages, error)) return false;
  }
  return CheckUnreachedEvents(error);
}

void Session::ApplyEvents(void* engine, HostState* host, FrameResult* result) {
  for (; nextEvent_ < events_.size() && events_[nextEvent_].frame == frames_; ++nextEvent_) {
    const Event& e = events_[nextEvent_];
    switch (e.kind) {
      case EventKind::kTouch:
        host->record.bTrackRequest = 1;
        host->record.nRequestX = e.x;
        host->record.nRequestY = e.y;
        result->touched = true;
        break;
      case EventKind::kZoom:
        host->zoom = e.zoom;
        break;
      case EventKind::kSensor:
        host->sensor = e.sensor;
        break;
      case EventKind::kSize:
        host->width = e.width;
        host->height = e.height;
        break;
      case EventKind::kFormat:
        host->format = e.format;
        break;
      case EventKind::kStride:
        host->strideAuto = e.stride == kStrideAuto;
        host->stride = e.stride;
        break;
      case EventKind::kReinit:
        deinit_plovix(engine);
        init_plovix(engine);
        break;
    }
  }
}

bool Session::ProcessOne(void* engine, const Picture& input, HostState* host, std::string* error) {
  if (!options_.realClock) plovix_replay_clock_set_ms(FrameTimeMs(frames_, options_.rate));
  FrameResult result;
  result.index = frames_;
  ApplyEvents(engine, host, &result);

  const Picture* fed = &input;
  if (host->width != input.width || host->height != input.height) {
    ScaleNearest(input, host->width, host->height, &host->scaled);
    fed = &host->scaled;
  }
  PackSemiPlanar(*fed, options_.packing, &host->luma, &host->chroma);

  PlovixStruct& rec = host->record;
  rec.pY = host->luma.data();
  rec.pUV = host->chroma.data();
  rec.nFormat = host->format;
  rec.nWidth = fed->width;
  rec.nHeight = fed->height;
  rec.nStride = host->strideAuto ? fed->width : host->stride;
  rec.nSensorType = host->sensor;
  rec.fZoomRatio = host->zoom;

  const auto start = std::chrono::steady_clock::now();
  result.ret = process_plovix(engine, &rec);
  const auto end = std::chrono::steady_clock::now();

  result.processMs = std::chrono::duration<double, std::milli>(end - start).count();
  result.record = rec;
  result.width = fed->width;
  result.height = fed->height;
  result.zoom = host->zoom;
  result.messages = std::move(pending_);
  pending_.clear();
  for (FrameObserver* o : observers_) {
    if (!o->OnFrame(result, *fed, error)) return false;
  }
  ++frames_;
  return true;
}

bool Session::CheckUnreachedEvents(std::string* error) const {
  if (nextEvent_ >= events_.size()) return true;
  const Event& e = events_[nextEvent_];
  *error = e.origin + ": event at frame " + std::to_string(e.frame) + ", but the clip has " +
           std::to_string(frames_) + " frames";
  return false;
}

}  // namespace plovix_replay
