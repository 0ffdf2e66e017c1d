#include "support/scene.h"

#include <algorithm>
#include <cmath>

namespace plovix_bench {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kSpeedPerHeight = 1.0 / 90.0;  // pixels a frame, per pixel of frame height
constexpr double kRadiusPerHeight = 1.0 / 18.0;  // 60 pixels at 1080 lines
constexpr int kDiscShading = 10;                 // luma from the lit to the dark side
constexpr double kDiscTexture = 24.0;            // luma amplitude of the pattern on the disc
constexpr double kDiscTextureWaves = 6.0;        // radians of the pattern per disc radius
constexpr int kSensorNoise = 3;                  // luma noise per frame, +-

// Muted scene objects, well away from the disc's colour, placed in fractions of the frame.
struct Patch {
  double left, top, right, bottom;
  uint8_t y, v, u;
};
constexpr Patch kPatches[] = {
    {0.06, 0.07, 0.22, 0.28, 104, 110, 112},
    {0.78, 0.70, 0.95, 0.93, 96, 125, 165},
    {0.68, 0.10, 0.89, 0.27, 180, 133, 118},
    {0.10, 0.77, 0.27, 0.95, 104, 139, 121},
};

uint32_t Hash(uint32_t x) {
  x ^= x >> 16;
  x *= 0x7feb352du;
  x ^= x >> 15;
  x *= 0x846ca68bu;
  x ^= x >> 16;
  return x;
}

// A pattern that moves with the disc, so trackers that follow luma structure have some to follow.
double DiscTexture(double u, double v) {
  return kDiscTexture * std::sin(kDiscTextureWaves * u) * std::sin(kDiscTextureWaves * v);
}

uint8_t Clamp8(double v) { return static_cast<uint8_t>(std::clamp(v, 0.0, 255.0)); }

void Allocate(int width, int height, Nv21Frame* f) {
  f->width = width;
  f->height = height;
  f->data.assign(static_cast<size_t>(width) * height + static_cast<size_t>(width) * (height / 2), 0);
}

void PaintBackground(Nv21Frame* f) {
  const int w = f->width;
  const int h = f->height;
  for (int y = 0; y < h; ++y) {
    for (int x = 0; x < w; ++x) {
      const double base = 60.0 + 70.0 * x / w + 50.0 * y / h;
      const double ripple = 12.0 * std::sin(30.0 * x / w + 2.0 * std::sin(8.0 * y / h));
      const int grain = static_cast<int>(Hash(static_cast<uint32_t>(y * w + x)) & 31) - 16;
      f->y()[static_cast<size_t>(y) * w + x] = Clamp8(base + ripple + grain);
    }
  }
  for (int y = 0; y < h / 2; ++y) {
    uint8_t* row = f->vu() + static_cast<size_t>(y) * w;
    for (int x = 0; x + 1 < w; x += 2) {
      row[x] = Clamp8(128.0 + 8.0 * std::cos(9.0 * x / w + 7.0 * y / h));
      row[x + 1] = Clamp8(128.0 + 10.0 * std::sin(10.0 * x / w) - 6.0 * std::cos(8.0 * y / h));
    }
  }
}

void PaintPatch(const Patch& p, Nv21Frame* f) {
  const int w = f->width;
  const int h = f->height;
  const int left = static_cast<int>(p.left * w) & ~1;
  const int right = static_cast<int>(p.right * w) & ~1;
  const int top = static_cast<int>(p.top * h) & ~1;
  const int bottom = static_cast<int>(p.bottom * h) & ~1;
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) {
      const int grain = static_cast<int>(Hash(static_cast<uint32_t>(y * w + x)) & 15) - 8;
      f->y()[static_cast<size_t>(y) * w + x] = Clamp8(p.y + grain);
    }
  }
  for (int y = top / 2; y < bottom / 2; ++y) {
    uint8_t* row = f->vu() + static_cast<size_t>(y) * w;
    for (int x = left; x < right; x += 2) {
      row[x] = p.v;
      row[x + 1] = p.u;
    }
  }
}

void AddSensorNoise(int i, Nv21Frame* f) {
  uint32_t s = Hash(static_cast<uint32_t>(i) + 1u) | 1u;
  const size_t n = static_cast<size_t>(f->width) * f->height;
  uint8_t* y = f->y();
  for (size_t k = 0; k < n; ++k) {
    s ^= s << 13;
    s ^= s >> 17;
    s ^= s << 5;
    const int noise = static_cast<int>(s % (2 * kSensorNoise + 1)) - kSensorNoise;
    y[k] = static_cast<uint8_t>(std::clamp(y[k] + noise, 0, 255));
  }
}

}  // namespace

Scene::Scene(int width, int height, int cycleFrames)
    : width_(width), height_(height), cycle_(std::max(cycleFrames, 1)) {
  const double radius = kRadiusPerHeight * height;
  const double lap = kSpeedPerHeight * height * cycle_;
  orbit_ = std::min(lap / (2.0 * kPi), height / 2.0 - 2.0 * radius);
  Allocate(width, height, &world_);
  PaintBackground(&world_);
  for (const Patch& p : kPatches) PaintPatch(p, &world_);
}

Disc Scene::DiscAt(int i) const {
  const double angle = 2.0 * kPi * static_cast<double>(i % cycle_) / cycle_;
  return {width_ / 2.0 + orbit_ * std::cos(angle), height_ / 2.0 + orbit_ * std::sin(angle),
          kRadiusPerHeight * height_};
}

void Scene::PaintDisc(const Disc& d, Nv21Frame* out) const {
  const int x0 = std::max(0, static_cast<int>(d.x - d.r));
  const int x1 = std::min(width_, static_cast<int>(d.x + d.r) + 2);
  const int y0 = std::max(0, static_cast<int>(d.y - d.r));
  const int y1 = std::min(height_, static_cast<int>(d.y + d.r) + 2);
  for (int y = y0; y < y1; ++y) {
    for (int x = x0; x < x1; ++x) {
      const double dx = x - d.x;
      const double dy = y - d.y;
      if (dx * dx + dy * dy > d.r * d.r) continue;
      // Lit from the top left, and patterned.
      out->y()[static_cast<size_t>(y) * width_ + x] = Clamp8(kDiscY - kDiscShading * (dx + dy) / (2.0 * d.r) + DiscTexture(dx / d.r, dy / d.r));
      if ((x % 2) == 0 && (y % 2) == 0) {
        uint8_t* pair = out->vu() + static_cast<size_t>(y / 2) * width_ + x;
        pair[0] = kDiscV;
        pair[1] = kDiscU;
      }
    }
  }
}

void Scene::Render(int i, bool withDisc, Nv21Frame* out) const {
  *out = world_;
  AddSensorNoise(i, out);
  if (withDisc) PaintDisc(DiscAt(i), out);
}

int FocusUnits(double pixel, int size) {
  return static_cast<int>(std::lround(pixel * 2000.0 / size - 1000.0));
}

}  // namespace plovix_bench
