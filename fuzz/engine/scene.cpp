#include "engine/scene.h"

#include <algorithm>
#include <cstring>

namespace plovix_fuzz {

namespace {

constexpr size_t kMaxShapes = 4;
constexpr int32_t kMaxSpeed = 256;  // per frame, 1/16 of the frame at most

size_t PlaneBytes(int width, int rows) {
  return (width > 0 && rows > 0) ? static_cast<size_t>(width) * static_cast<size_t>(rows) : 0;
}

int32_t ToPixels(int32_t units, int side) { return static_cast<int32_t>(int64_t{units} * side / kSceneUnit); }

// Positions wrap around the frame, so a shape that leaves on one side comes back on the other.
int32_t Wrap(int32_t v) { return ((v % kSceneUnit) + kSceneUnit) % kSceneUnit; }

uint8_t Noisy(uint8_t base, uint8_t amplitude, uint32_t* state) {
  if (amplitude == 0) return base;
  *state ^= *state << 13;
  *state ^= *state >> 17;
  *state ^= *state << 5;
  const int v = base + static_cast<int>(*state % (2u * amplitude + 1)) - amplitude;
  return static_cast<uint8_t>(std::clamp(v, 0, 255));
}

void PaintPixel(HostFrame* f, int x, int y, const Shape& s) {
  f->y.get()[static_cast<size_t>(y) * f->width + x] = s.y;
  if (y / 2 >= f->height / 2) return;
  const size_t pair = static_cast<size_t>(y / 2) * f->width + (x & ~1);
  f->uv.get()[pair] = s.c0;
  if (pair + 1 < f->uv.size()) f->uv.get()[pair + 1] = s.c1;
}

void PaintShape(const Shape& s, HostFrame* f) {
  const int cx = ToPixels(s.cx, f->width);
  const int cy = ToPixels(s.cy, f->height);
  const int half = std::max(1, ToPixels(s.size, std::min(f->width, f->height)) / 2);
  const int64_t r2 = int64_t{half} * half;
  for (int y = std::max(cy - half, 0); y < std::min(cy + half, f->height); ++y) {
    for (int x = std::max(cx - half, 0); x < std::min(cx + half, f->width); ++x) {
      const int64_t dx = x - cx, dy = y - cy;
      if (s.disc && dx * dx + dy * dy > r2) continue;
      PaintPixel(f, x, y, s);
    }
  }
}

}  // namespace

Scene Scene::Default() {
  Scene s;
  s.shapes.push_back(Shape{true, 200, 60, 190, 2048, 2048, 1024, 24, 12});
  return s;
}

Scene Scene::Read(ByteReader* in) {
  Scene s;
  s.y = in->U8();
  s.c0 = in->U8();
  s.c1 = in->U8();
  s.noise = in->U8() % 64;
  s.seed = in->U8() | 1u;
  const size_t count = in->U8() % (kMaxShapes + 1);
  for (size_t i = 0; i < count; ++i) {
    Shape sh;
    sh.disc = (in->U8() & 1) != 0;
    sh.y = in->U8();
    sh.c0 = in->U8();
    sh.c1 = in->U8();
    sh.cx = in->U16() % kSceneUnit;
    sh.cy = in->U16() % kSceneUnit;
    sh.size = in->U16() % (2 * kSceneUnit);
    sh.vx = static_cast<int8_t>(in->U8()) * kMaxSpeed / 128;
    sh.vy = static_cast<int8_t>(in->U8()) * kMaxSpeed / 128;
    s.shapes.push_back(sh);
  }
  return s;
}

void Scene::Advance() {
  for (Shape& sh : shapes) {
    sh.cx = Wrap(sh.cx + sh.vx);
    sh.cy = Wrap(sh.cy + sh.vy);
  }
}

void Scene::ShapeCentre(size_t i, int width, int height, int* x, int* y) const {
  if (shapes.empty()) {
    *x = width / 2;
    *y = height / 2;
    return;
  }
  const Shape& sh = shapes[i % shapes.size()];
  *x = ToPixels(sh.cx, width);
  *y = ToPixels(sh.cy, height);
}

HostFrame::HostFrame(int w, int h) : width(w), height(h), y(PlaneBytes(w, h)), uv(PlaneBytes(w, h / 2)) {}

void PaintScene(const Scene& scene, HostFrame* f) {
  uint32_t state = scene.seed;
  for (size_t i = 0; i < f->y.size(); ++i) f->y.get()[i] = Noisy(scene.y, scene.noise, &state);
  for (size_t i = 0; i < f->uv.size(); ++i) f->uv.get()[i] = (i % 2 == 0) ? scene.c0 : scene.c1;
  if (scene.hidden) return;
  for (const Shape& sh : scene.shapes) PaintShape(sh, f);
}

}  // namespace plovix_fuzz
