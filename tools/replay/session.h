// Drives one engine through a clip the way a camera app does: create, init, one process call per
// frame with a single reused record, deinit, destroy; events change the record between frames.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "events.h"
#include "frame_source.h"
#include "plovixengine.h"

namespace plovix_replay {

constexpr int kFormatNv21 = 2;
constexpr int kFormatNv12 = 7;
// Simulated time of day of frame 0, in milliseconds since the epoch.
constexpr int64_t kClockBaseMs = 1700000000000LL;

struct EngineMessage {
  int priority;
  std::string text;
};

struct SessionOptions {
  std::string sourceName;  // prefixes messages about the input
  FrameRate rate;          // paces the simulated clock
  ChromaOrder packing = ChromaOrder::kVU;
  int formatCode = kFormatNv21;
  int scaleWidth = 0;  // 0: feed frames at their input size
  int scaleHeight = 0;
  bool realClock = false;
  long maxFrames = -1;  // -1: the whole clip
};

struct FrameResult {
  long index = 0;
  int ret = 0;
  PlovixStruct record{};  // read back after process_plovix
  int width = 0;          // size of the frame as fed
  int height = 0;
  bool touched = false;
  float zoom = 1.0f;
  double processMs = 0.0;  // wall time of the process_plovix call
  // Messages since the previous frame: those of this call, and of a re-initialisation before it.
  std::vector<EngineMessage> messages;
};

class FrameObserver {
 public:
  virtual ~FrameObserver() = default;
  // fed is the frame exactly as handed to the engine (after scaling). False stops the session.
  virtual bool OnFrame(const FrameResult& result, const Picture& fed, std::string* error) = 0;
  // After the last frame, with the messages of the final deinit.
  virtual bool OnFinish(long frames, const std::vector<EngineMessage>& messages,
                        std::string* error) {
    (void)frames;
    (void)messages;
    (void)error;
    return true;
  }
};

class Session {
 public:
  // events must be resolved (ResolveEvents).
  Session(FrameSource* source, std::vector<Event> events, SessionOptions options);
  void AddObserver(FrameObserver* observer) { observers_.push_back(observer); }
  void SetProgress(std::function<void(long done, long total)> progress) { progress_ = progress; }
  // Returns false with *error set ("NAME: what is wrong") on a bad input or a failed writer.
  bool Run(std::string* error);
  long FramesDone() const { return frames_; }

 private:
  struct HostState;
  bool ProcessOne(void* engine, const Picture& input, HostState* host, std::string* error);
  void ApplyEvents(void* engine, HostState* host, FrameResult* result);
  bool CheckUnreachedEvents(std::string* error) const;

  FrameSource* source_;
  std::vector<Event> events_;
  SessionOptions options_;
  std::vector<FrameObserver*> observers_;
  std::function<void(long, long)> progress_;
  size_t nextEvent_ = 0;
  long frames_ = 0;
  std::vector<EngineMessage> pending_;
};

}  // namespace plovix_replay
