// The soak's script: an endless repetition of one cycle of phases, each a fixed number of frames,
// and for every frame what the camera shows and what the host does.
#pragma once

#include <cstdint>

#include "scene.h"

namespace soak {

enum class Phase {
  kTouch,    // the disc is touched on the first frame, then glides on
  kMove,     // it keeps moving along its path
  kZoom,     // the camera zooms in and out in steps
  kResize,   // the preview switches to 640x480 and back to 1280x720
  kBlink,    // hidden briefly: temporarily lost, then found again without a touch
  kLoss,     // hidden long enough to be finally lost
  kRecover,  // touched again
  kReinit,   // deinit + init while tracking, then frames without a touch
};
constexpr int kPhaseCount = 8;

// The two preview sizes.
constexpr int kWideWidth = 1280, kWideHeight = 720;
constexpr int kFullWidth = 640, kFullHeight = 480;

struct PhaseInfo {
  const char* name;
  int frames;
  int endState;   // the state the last frame of the phase must report
  int mustVisit;  // a state some frame of the phase must report, or 0
};
const PhaseInfo& InfoOf(Phase p);
int CycleLength();

struct Step {
  int64_t cycle;
  Phase phase;
  int frameInPhase;
  bool lastOfPhase;
  bool wide;           // 1280x720, else 640x480
  float zoom;          // ratio sent to the engine, and the magnification rendered
  bool reinitBefore;   // deinit_plovix + init_plovix before this frame
  bool touch;          // touch the disc's centre on this frame
  Disc disc;           // in the preview's pixels
};

// Frame numbers count from 0 over the whole run.
Step StepAt(int64_t frame);

int PreviewWidth(const Step& s);
int PreviewHeight(const Step& s);

// Focus units of preview pixel p on an axis of the given size: the smallest unit that the engine's
// truncating conversion maps back into that pixel.
int ToFocusUnits(int p, int size);

}  // namespace soak
