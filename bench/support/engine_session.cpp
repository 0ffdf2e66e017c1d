#include "support/engine_session.h"

namespace plovix_bench {
namespace {

constexpr int32_t kFormatNv21 = 2;
constexpr int32_t kSensorUnknown = -1;

void DropMessage(int, const char*, const char*, void*) {}

}  // namespace

void SilenceEngineLog() { plovix_set_log_callback(DropMessage, nullptr); }

EngineSession::EngineSession(const FrameSet* frames) : frames_(frames), handle_(create_plovix_handle()), rec_() {
  SilenceEngineLog();
  init_plovix(handle_);
  rec_.nFormat = kFormatNv21;
  rec_.nWidth = frames->size().width;
  rec_.nHeight = frames->size().height;
  rec_.nStride = frames->size().width;
  rec_.nSensorType = kSensorUnknown;
  rec_.fZoomRatio = 1.0f;
}

EngineSession::~EngineSession() {
  deinit_plovix(handle_);
  destroy_plovix_handle(handle_);
}

void EngineSession::LoadMoving(bool touch) {
  const int i = frames_->Wrap(nextMoving_++);
  const Nv21Frame& f = frames_->Moving(i);
  rec_.pY = const_cast<uint8_t*>(f.y());
  rec_.pUV = const_cast<uint8_t*>(f.vu());
  if (!touch) return;
  const Disc d = frames_->scene().DiscAt(i);
  rec_.bTrackRequest = 1;
  rec_.nRequestX = FocusUnits(d.x, f.width);
  rec_.nRequestY = FocusUnits(d.y, f.height);
}

void EngineSession::LoadHidden() {
  const Nv21Frame& f = frames_->Hidden(nextHidden_++);
  rec_.pY = const_cast<uint8_t*>(f.y());
  rec_.pUV = const_cast<uint8_t*>(f.vu());
}

int EngineSession::Process() { return process_plovix(handle_, &rec_) == 0 ? rec_.nTrackState : -1; }

bool EngineSession::FeedExpecting(bool hidden, int frames, int state) {
  bool ok = true;
  for (int i = 0; i < frames; ++i) {
    if (hidden) {
      LoadHidden();
    } else {
      LoadMoving();
    }
    ok = (Process() == state) && ok;
  }
  return ok;
}

bool EngineSession::StartTracking() {
  LoadMoving(true);
  const bool selected = Process() == PLOVIX_STATE_TRACKING;
  return TrackFrames(kWarmupFrames) && selected;
}

bool EngineSession::TrackFrames(int frames) { return FeedExpecting(false, frames, PLOVIX_STATE_TRACKING); }

bool EngineSession::LoseObject() {
  const bool stillTracked = FeedExpecting(true, kFramesUntilLost - 1, PLOVIX_STATE_TRACKING);
  return FeedExpecting(true, 1, PLOVIX_STATE_TEMP_LOST) && stillTracked;
}

bool EngineSession::SearchWholeFrame(int frames) {
  return FeedExpecting(true, frames, PLOVIX_STATE_TEMP_LOST);
}

}  // namespace plovix_bench
