#include "demo_clip.h"

#include <algorithm>
#include <cmath>

#include "drawing.h"

namespace plovix_replay {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kFrameCentreX = kDemoWidth / 2.0;
constexpr double kFrameCentreY = kDemoHeight / 2.0;

// The disc's path: once right and back left in x, two swings in y.
constexpr double kPathMidX = 960.0;
constexpr double kPathSwingX = 480.0;
constexpr double kPathPeriodX = 300.0;
constexpr double kPathMidY = 560.0;
constexpr double kPathSwingY = 140.0;
constexpr double kPathPeriodY = 150.0;
constexpr double kRadiusMid = 60.0;
constexpr double kRadiusSwing = 18.0;
constexpr double kRadiusPeriod = 120.0;
constexpr int kDiscShading = 10;  // luma from the lit to the dark side of the disc

// The pillar, in scene x (full height), wider than the disc so it hides it completely.
constexpr double kPillarLeft = 980.0;
constexpr double kPillarRight = 1140.0;
constexpr int kPillarStripe = 40;

// The zoom-in: from kZoomStart on, kZoomSteps frames each add kZoomStep.
constexpr long kZoomStart = 170;
constexpr int kZoomSteps = 12;
constexpr double kZoomStep = 0.05;

constexpr double kVisibleShare = 0.5;  // shown share of the disc for its centre to be scored
constexpr int kSensorNoise = 3;        // luma noise per frame, +-

struct Patch {
  int left, top, right, bottom;
  int r, g, b;
};

// Muted scene objects, well away from the disc's colour.
constexpr Patch kPatches[] = {
    {120, 80, 420, 300, 70, 120, 70},
    {1500, 760, 1820, 1000, 80, 90, 160},
    {1300, 110, 1700, 290, 190, 180, 150},
    {200, 830, 520, 1030, 120, 100, 90},
};

const Yuv kDiscColour = YuvFromRgb(235, 95, 25);
const Yuv kPillarColour = YuvFromRgb(110, 110, 110);

uint32_t Hash(uint32_t x) {
  x ^= x >> 16;
  x *= 0x7feb352du;
  x ^= x >> 15;
  x *= 0x846ca68bu;
  x ^= x >> 16;
  return x;
}

uint8_t Clamp8(double v) { return static_cast<uint8_t>(std::clamp(v, 0.0, 255.0)); }

struct Disc {
  double x;
  double y;
  double r;
};

Disc SceneDiscAt(long t) {
  const double tt = static_cast<double>(t);
  return {kPathMidX - kPathSwingX * std::cos(2.0 * kPi * tt / kPathPeriodX),
          kPathMidY + kPathSwingY * std::sin(2.0 * kPi * tt / kPathPeriodY),
          kRadiusMid + kRadiusSwing * std::sin(2.0 * kPi * tt / kRadiusPeriod)};
}

// Scene position seen at the centre of frame pixel i: zooming magnifies about the frame centre.
double SceneCoordinate(int i, double centre, double zoom) {
  return centre + (i + 0.5 - centre) / zoom;
}

int SceneIndex(double s, int size) {
  return std::clamp(static_cast<int>(std::floor(s)), 0, size - 1);
}

bool InPillar(double sx) { return sx >= kPillarLeft && sx < kPillarRight; }

void BuildWorld(Picture* w) {
  ResizePicture(w, kDemoWidth, kDemoHeight);
  for (int y = 0; y < kDemoHeight; ++y) {
    for (int x = 0; x < kDemoWidth; ++x) {
      const double base = 60.0 + 70.0 * x / kDemoWidth + 50.0 * y / kDemoHeight;
      const double ripple = 12.0 * std::sin(x / 57.0 + 2.0 * std::sin(y / 131.0));
      const int grain = static_cast<int>(Hash(static_cast<uint32_t>(y * kDemoWidth + x)) & 31) - 16;
      w->y[static_cast<size_t>(y) * kDemoWidth + x] = Clamp8(base + ripple + grain);
    }
  }
  const int cw = w->ChromaWidth();
  for (int y = 0; y < w->ChromaHeight(); ++y) {
    for (int x = 0; x < cw; ++x) {
      w->u[static_cast<size_t>(y) * cw + x] =
          Clamp8(128.0 + 10.0 * std::sin(x / 90.0) - 6.0 * std::cos(y / 70.0));
      w->v[static_cast<size_t>(y) * cw + x] = Clamp8(128.0 + 8.0 * std::cos(x / 110.0 + y / 150.0));
    }
  }
  for (const Patch& p : kPatches) {
    const Yuv c = YuvFromRgb(p.r, p.g, p.b);
    for (int y = p.top; y < p.bottom; ++y) {
      for (int x = p.left; x < p.right; ++x) {
        const int grain =
            static_cast<int>(Hash(static_cast<uint32_t>(y * kDemoWidth + x)) & 15) - 8;
        w->y[static_cast<size_t>(y) * kDemoWidth + x] = Clamp8(c.y + grain);
      }
    }
    for (int y = p.top / 2; y < p.bottom / 2; ++y) {
      std::fill_n(w->u.begin() + static_cast<size_t>(y) * cw + p.left / 2, (p.right - p.left) / 2,
                  c.u);
      std::fill_n(w->v.begin() + static_cast<size_t>(y) * cw + p.left / 2, (p.right - p.left) / 2,
                  c.v);
    }
  }
}

}  // namespace

DemoClip::DemoClip(long frames) : frames_(frames) { BuildWorld(&world_); }

float DemoClip::ZoomAt(long frame) {
  const long steps = std::clamp<long>(frame - kZoomStart + 1, 0, kZoomSteps);
  return static_cast<float>(1.0 + kZoomStep * static_cast<double>(steps));
}

TruthPoint DemoClip::CentreAt(long frame) {
  const Disc d = SceneDiscAt(frame);
  const double zoom = ZoomAt(frame);
  TruthPoint t;
  t.x = kFrameCentreX + (d.x - kFrameCentreX) * zoom;
  t.y = kFrameCentreY + (d.y - kFrameCentreY) * zoom;
  return t;
}

std::vector<Event> DemoClip::Events() const {
  std::vector<Event> events;
  const TruthPoint start = CentreAt(0);
  Event touch;
  touch.frame = 0;
  touch.kind = EventKind::kTouch;
  touch.x = PixelToFocus(static_cast<int>(std::lround(start.x)), kDemoWidth);
  touch.y = PixelToFocus(static_cast<int>(std::lround(start.y)), kDemoHeight);
  touch.origin = "demo touch";
  events.push_back(touch);
  for (long f = kZoomStart; f < kZoomStart + kZoomSteps && f < frames_; ++f) {
    Event zoom;
    zoom.frame = f;
    zoom.kind = EventKind::kZoom;
    zoom.zoom = ZoomAt(f);
    zoom.origin = "demo zoom";
    events.push_back(zoom);
  }
  return events;
}

void DemoClip::RenderBackground(double zoom, Picture* p) const {
  std::vector<int> column(kDemoWidth);
  std::vector<bool> pillar(kDemoWidth);
  for (int x = 0; x < kDemoWidth; ++x) {
    const double sx = SceneCoordinate(x, kFrameCentreX, zoom);
    column[x] = SceneIndex(sx, kDemoWidth);
    pillar[x] = InPillar(sx);
  }
  for (int y = 0; y < kDemoHeight; ++y) {
    const int sy = SceneIndex(SceneCoordinate(y, kFrameCentreY, zoom), kDemoHeight);
    const uint8_t stripe = static_cast<uint8_t>(kPillarColour.y + ((sy / kPillarStripe) % 2) * 24);
    const uint8_t* in = world_.y.data() + static_cast<size_t>(sy) * kDemoWidth;
    uint8_t* out = p->y.data() + static_cast<size_t>(y) * kDemoWidth;
    for (int x = 0; x < kDemoWidth; ++x) out[x] = pillar[x] ? stripe : in[column[x]];
  }
  const int cw = p->ChromaWidth();
  for (int y = 0; y < p->ChromaHeight(); ++y) {
    const int sy = SceneIndex(SceneCoordinate(2 * y, kFrameCentreY, zoom), kDemoHeight) / 2;
    for (int x = 0; x < cw; ++x) {
      const size_t at = static_cast<size_t>(y) * cw + x;
      const size_t from = static_cast<size_t>(sy) * cw + column[2 * x] / 2;
      p->u[at] = pillar[2 * x] ? kPillarColour.u : world_.u[from];
      p->v[at] = pillar[2 * x] ? kPillarColour.v : world_.v[from];
    }
  }
}

long DemoClip::RenderDisc(long frame, double zoom, Picture* p) const {
  const Disc d = SceneDiscAt(frame);
  const TruthPoint c = CentreAt(frame);
  const double reach = d.r * zoom + 2.0;
  const int x0 = std::max(0, static_cast<int>(c.x - reach));
  const int x1 = std::min(kDemoWidth, static_cast<int>(c.x + reach) + 1);
  const int y0 = std::max(0, static_cast<int>(c.y - reach));
  const int y1 = std::min(kDemoHeight, static_cast<int>(c.y + reach) + 1);
  const int cw = p->ChromaWidth();
  long shown = 0;
  for (int y = y0; y < y1; ++y) {
    const double dy = SceneCoordinate(y, kFrameCentreY, zoom) - d.y;
    for (int x = x0; x < x1; ++x) {
      const double sx = SceneCoordinate(x, kFrameCentreX, zoom);
      const double dx = sx - d.x;
      if (dx * dx + dy * dy > d.r * d.r || InPillar(sx)) continue;
      ++shown;
      // Lit from the top left, so the disc is not perfectly flat.
      p->y[static_cast<size_t>(y) * kDemoWidth + x] =
          Clamp8(kDiscColour.y - kDiscShading * (dx + dy) / (2.0 * d.r));
      if ((x % 2) == 0 && (y % 2) == 0) {
        p->u[static_cast<size_t>(y / 2) * cw + x / 2] = kDiscColour.u;
        p->v[static_cast<size_t>(y / 2) * cw + x / 2] = kDiscColour.v;
      }
    }
  }
  return shown;
}

void DemoClip::AddSensorNoise(long frame, Picture* p) const {
  uint32_t s = Hash(static_cast<uint32_t>(frame) + 1u);
  for (uint8_t& v : p->y) {
    s ^= s << 13;
    s ^= s >> 17;
    s ^= s << 5;
    const int n = static_cast<int>(s % (2 * kSensorNoise + 1)) - kSensorNoise;
    v = static_cast<uint8_t>(std::clamp(v + n, 0, 255));
  }
}

ReadStatus DemoClip::Read(Picture* p, std::string* /*error*/) {
  if (next_ >= frames_) return ReadStatus::kEnd;
  const double zoom = ZoomAt(next_);
  ResizePicture(p, kDemoWidth, kDemoHeight);
  RenderBackground(zoom, p);
  const long shown = RenderDisc(next_, zoom, p);
  AddSensorNoise(next_, p);
  TruthPoint t = CentreAt(next_);
  const double r = SceneDiscAt(next_).r * zoom;
  t.visible = static_cast<double>(shown) >= kVisibleShare * kPi * r * r;
  truth_.push_back(t);
  ++next_;
  return ReadStatus::kFrame;
}

}  // namespace plovix_replay
