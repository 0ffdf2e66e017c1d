// One engine handle driven through a preview session on a FrameSet's frames, as a camera app
// drives it: the same record every frame, NV21, no sensor information, zoom 1.
#pragma once

#include "plovixengine.h"
#include "support/frame_set.h"

namespace plovix_bench {

// Frames tracked after a touch before a situation is timed, so the tracker's running means of
// the object's appearance are fed as in a real session.
constexpr int kWarmupFrames = 12;
// The object is declared lost on the fifth consecutive frame without it.
constexpr int kFramesUntilLost = 5;
// Lost-state frames that search the whole frame; the next one searches blocks and gives up.
constexpr int kWholeFrameSearches = 100;

// Sends the engine's messages nowhere: a benchmark times the engine, not a terminal.
void SilenceEngineLog();

class EngineSession {
 public:
  explicit EngineSession(const FrameSet* frames);
  ~EngineSession();
  EngineSession(const EngineSession&) = delete;
  EngineSession& operator=(const EngineSession&) = delete;

  // Point the record at the next moving frame (with a touch on the disc if asked) or the next
  // hidden frame. Each kind cycles through its frames on its own.
  void LoadMoving(bool touch = false);
  void LoadHidden();

  // Processes the loaded frame; the reported track state, or -1 when the frame was refused.
  int Process();

  // Untimed preparation. Each returns false when the engine reported another state than the
  // step implies, so a benchmark never times a situation other than the one it names.
  bool StartTracking();                 // a touch on the disc, then kWarmupFrames tracked frames
  bool TrackFrames(int frames);         // moving frames, each reported as tracking
  bool LoseObject();                    // hidden frames until the object is reported lost
  bool SearchWholeFrame(int frames);    // hidden frames, each reported as temporarily lost

  PlovixStruct& record() { return rec_; }

 private:
  bool FeedExpecting(bool hidden, int frames, int state);

  const FrameSet* frames_;
  void* handle_;
  PlovixStruct rec_;
  int nextMoving_ = 0;
  int nextHidden_ = 0;
};

}  // namespace plovix_bench
