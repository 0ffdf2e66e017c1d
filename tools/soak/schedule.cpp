#include "schedule.h"

#include <cmath>

namespace soak {

namespace {

constexpr int kNotTracking = 1, kTracking = 2, kTempLost = 3;

constexpr PhaseInfo kPhases[kPhaseCount] = {
    {"touch", 30, kTracking, 0},
    {"move", 150, kTracking, 0},
    {"zoom", 120, kTracking, 0},
    {"resize", 120, kTracking, 0},
    {"blink", 60, kTracking, kTempLost},
    // 4 weak frames, then more than 100 temporarily lost ones before the engine gives up.
    {"loss", 130, kNotTracking, kTempLost},
    {"recover", 60, kTracking, 0},
    {"reinit", 30, kNotTracking, 0},
};

// The scene lives on a 4:3 sensor of 1280x960 units. The 1280x720 preview shows its middle 720
// rows at full scale, the 640x480 preview all of it at half scale; the sensor type sent (a 4:3
// one) tells the engine so.
constexpr int kWideTopRow = 120;
constexpr double kDiscRadius = 60.0;

// The path: incommensurate sines around the sensor centre, at most about 4 units per frame, so
// every cycle sees another stretch of it. At zoom 1.5 the disc stays inside the wide preview.
constexpr double kPathCentreX = 640, kPathCentreY = 480;
constexpr double kPathAmpX = 260, kPathAmpY = 160;
constexpr double kPathRateX = 0.015, kPathRateY = 0.025, kPathPhaseY = 0.7;

constexpr float kZoomLevels[] = {1.0f, 1.25f, 1.5f, 1.25f, 1.0f};
constexpr int kZoomLevelCount = sizeof(kZoomLevels) / sizeof(kZoomLevels[0]);

constexpr int kBlinkHiddenFrames = 20;

int CycleFrames() {
  int n = 0;
  for (const PhaseInfo& p : kPhases) n += p.frames;
  return n;
}

float ZoomOf(Phase p, int frameInPhase) {
  if (p != Phase::kZoom) return 1.0f;
  return kZoomLevels[frameInPhase * kZoomLevelCount / InfoOf(p).frames];
}

bool Visible(Phase p, int frameInPhase) {
  if (p == Phase::kLoss) return false;
  return p != Phase::kBlink || frameInPhase >= kBlinkHiddenFrames;
}

// The sensor position at this frame, projected into the preview and magnified about its centre.
Disc Project(int64_t frame, bool wide, float zoom, bool visible) {
  const double f = static_cast<double>(frame);
  const double sx = kPathCentreX + kPathAmpX * std::sin(kPathRateX * f);
  const double sy = kPathCentreY + kPathAmpY * std::sin(kPathRateY * f + kPathPhaseY);
  const double scale = wide ? 1.0 : 0.5;
  const double w = wide ? kWideWidth : kFullWidth;
  const double h = wide ? kWideHeight : kFullHeight;
  const double px = sx * scale;
  const double py = (sy - (wide ? kWideTopRow : 0)) * scale;
  const double z = zoom;
  return Disc{static_cast<int>(std::lround(w / 2 + (px - w / 2) * z)),
              static_cast<int>(std::lround(h / 2 + (py - h / 2) * z)),
              static_cast<int>(std::lround(kDiscRadius * scale * z)), visible};
}

}  // namespace

const PhaseInfo& InfoOf(Phase p) { return kPhases[static_cast<int>(p)]; }

int CycleLength() {
  static const int n = CycleFrames();
  return n;
}

Step StepAt(int64_t frame) {
  Step s{};
  s.cycle = frame / CycleLength();
  int at = static_cast<int>(frame % CycleLength());
  int p = 0;
  while (at >= kPhases[p].frames) at -= kPhases[p++].frames;
  s.phase = static_cast<Phase>(p);
  s.frameInPhase = at;
  s.lastOfPhase = at == kPhases[p].frames - 1;
  s.wide = !(s.phase == Phase::kResize && at < kPhases[p].frames / 2);
  s.zoom = ZoomOf(s.phase, at);
  s.reinitBefore = s.phase == Phase::kReinit && at == 0;
  s.touch = (s.phase == Phase::kTouch || s.phase == Phase::kRecover) && at == 0;
  s.disc = Project(frame, s.wide, s.zoom, Visible(s.phase, at));
  return s;
}

int PreviewWidth(const Step& s) { return s.wide ? kWideWidth : kFullWidth; }
int PreviewHeight(const Step& s) { return s.wide ? kWideHeight : kFullHeight; }

int ToFocusUnits(int p, int size) {
  const int64_t scaled = static_cast<int64_t>(p) * 2000;
  return static_cast<int>((scaled + size - 1) / size) - 1000;
}

}  // namespace soak
