// Whole scripted sessions through the C entry points, each reduced to one digest of every record
// field and every message of every frame. The constants were recorded from the engine; a change
// that is meant to keep every result (a speed-up, a refactoring) must leave all of them as they are.
// On a mismatch the failing session and its new digest are printed.
#include <gtest/gtest.h>

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <utility>

#include "plovixengine.h"
#include "sim_clock.h"
#include "support/test_support.h"

namespace {

using plovix_test::Frame;

// The time of day the engine reads advances 33 ms per frame, so velocities are reproducible.
constexpr int64_t kClockStartMs = 1700000000000;
constexpr int64_t kFrameIntervalMs = 33;

constexpr int kNv21 = 2;
constexpr int kNv12Venus = 3;
constexpr int kNv12 = 7;

// FNV-1a, 64 bits, over bytes in a fixed order (integers little-endian whatever the host).
class Digest {
 public:
  void Byte(uint8_t b) {
    value_ ^= b;
    value_ *= 0x100000001b3ull;
  }
  void Int(int32_t v) {
    for (int i = 0; i < 4; ++i) Byte(static_cast<uint8_t>(static_cast<uint32_t>(v) >> (8 * i)));
  }
  void Text(const char* s) {
    for (; *s != '\0'; ++s) Byte(static_cast<uint8_t>(*s));
    Byte(0);
  }
  uint64_t value() const { return value_; }

 private:
  uint64_t value_ = 0xcbf29ce484222325ull;
};

// Disc and distractor colours as (Y, V, U); the plane order follows the format.
struct Colour {
  uint8_t y, v, u;
};
constexpr Colour kDiscColour{82, 220, 96};
constexpr Colour kDistractorColour{92, 196, 112};

void PaintDisc(Frame* f, int cx, int cy, int radius, const Colour& c, int format) {
  if (format == kNv21) {
    plovix_test::PaintDisc(f, cx, cy, radius, c.y, c.v, c.u);
  } else {
    plovix_test::PaintDisc(f, cx, cy, radius, c.y, c.u, c.v);
  }
}

// A textured background with a static distractor blob and a disc that moves along a piecewise
// linear path (integer arithmetic only, so frames are identical on every platform).
struct Scene {
  Scene(int width, int height, uint32_t seed) : background(plovix_test::MakeTexturedFrame(width, height, seed)) {}
  int w() const { return background.width; }
  int h() const { return background.height; }
  // Disc position at frame i: x0 + vx * i, with y bouncing between y0 - 3 * amp and y0 + 3 * amp.
  struct Path {
    int x0, y0, vx, amp;
  };
  Frame Render(int i, const Path& p, int radius, bool visible, int format) const {
    Frame f = background;
    PaintDisc(&f, w() * 4 / 5, h() / 5, radius / 2 + 2, kDistractorColour, format);
    if (visible) {
      const int phase = i % 12;
      const int bounce = phase < 6 ? phase : 12 - phase;
      PaintDisc(&f, p.x0 + p.vx * i, p.y0 + p.amp * (bounce - 3), radius, kDiscColour, format);
    }
    return f;
  }
  Frame background;
};

struct Settings {
  int format = kNv21;
  int stride = 0;  // 0: the frame width
  int sensor = -1;
  float zoom = 1.0f;
};

// One handle and one record reused for every frame, as a camera host drives the engine; every
// outcome goes into the digest.
class Host {
 public:
  Host() {
    plovix_test::ResetTrackerGlobals();
    plovix_replay_clock_set_ms(kClockStartMs);
    plovix_set_log_callback(&Host::OnMessage, this);
    handle_ = create_plovix_handle();
    init_plovix(handle_);
  }
  ~Host() {
    deinit_plovix(handle_);
    destroy_plovix_handle(handle_);
    plovix_set_log_callback(nullptr, nullptr);
    plovix_replay_clock_use_real();
    plovix_test::ResetTrackerGlobals();
  }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  // The next frame carries a touch at frame pixel (x, y) of a width x height frame.
  void TouchPixel(int x, int y, int width, int height) {
    TouchFocus(x * 2000 / width - 1000, y * 2000 / height - 1000);
  }
  void TouchFocus(int fx, int fy) {
    rec_.bTrackRequest = 1;
    rec_.nRequestX = fx;
    rec_.nRequestY = fy;
  }
  // The next frame reads the same time of day as the previous one.
  void HoldClock() { holdClock_ = true; }

  void Process(Frame* f, const Settings& s) {
    if (!holdClock_) plovix_replay_clock_set_ms(kClockStartMs + kFrameIntervalMs * frame_);
    holdClock_ = false;
    ++frame_;
    rec_.pY = f->y.data();
    rec_.pUV = f->uv.data();
    rec_.nFormat = s.format;
    rec_.nWidth = f->width;
    rec_.nHeight = f->height;
    rec_.nStride = s.stride != 0 ? s.stride : f->width;
    rec_.nSensorType = s.sensor;
    rec_.fZoomRatio = s.zoom;
    digest_.Text("frame");
    digest_.Int(process_plovix(handle_, &rec_));
    for (int32_t v : {int32_t{rec_.bTrackRequest}, rec_.nTrackState, rec_.nLeft, rec_.nRight, rec_.nTop,
                      rec_.nBottom, rec_.nWeight, rec_.nPredictState, rec_.nPredictLeft, rec_.nPredictRight,
                      rec_.nPredictTop, rec_.nPredictBottom, rec_.nPredictWeight, rec_.nOffsetX, rec_.nOffsetY,
                      rec_.nVelocityX, rec_.nVelocityY}) {
      digest_.Int(v);
    }
  }
  void Init() { digest_.Int(init_plovix(handle_)); }
  void Deinit() { digest_.Int(deinit_plovix(handle_)); }

  uint64_t digest() const { return digest_.value(); }

 private:
  static void OnMessage(int priority, const char* tag, const char* text, void* user) {
    Digest& d = static_cast<Host*>(user)->digest_;
    d.Int(priority);
    d.Text(tag);
    d.Text(text);
  }

  void* handle_ = nullptr;
  PlovixStruct rec_{};
  Digest digest_;
  int64_t frame_ = 0;
  bool holdClock_ = false;
};

// Full HD NV21: a gliding disc touched on frame 0, short and long strides, a second touch on the
// moving disc, one on plain background, one on the distractor, and a frame with a frozen clock.
uint64_t GlideFullHd() {
  const Scene scene(1920, 1080, 7);
  const Scene::Path path{500, 560, 8, 6};
  Host host;
  for (int i = 0; i < 70; ++i) {
    Frame f = scene.Render(i, path, 90, true, kNv21);
    Settings s;
    if (i >= 20 && i < 24) s.stride = 1900;
    if (i == 25) s.stride = 2048;
    if (i == 0 || i == 40) host.TouchPixel(path.x0 + path.vx * i, path.y0 - 3 * path.amp, 1920, 1080);
    if (i == 50) host.TouchPixel(200, 900, 1920, 1080);
    if (i == 58) host.TouchPixel(1536, 216, 1920, 1080);
    if (i == 30) host.HoldClock();
    host.Process(&f, s);
  }
  return host.digest();
}

// 1280x720 NV12: hidden for 30 frames (temporarily lost, wide search), then found again; the
// disc then leaves the frame on the right.
uint64_t HideAndReturn720() {
  const Scene scene(1280, 720, 11);
  const Scene::Path path{300, 400, 9, 4};
  Host host;
  for (int i = 0; i < 110; ++i) {
    Frame f = scene.Render(i, path, 60, i < 20 || i >= 50, kNv12);
    Settings s;
    s.format = kNv12;
    if (i == 0) host.TouchPixel(path.x0, path.y0 - 3 * path.amp, 1280, 720);
    host.Process(&f, s);
  }
  return host.digest();
}

// 1280x720 NV21: gone for good from frame 10 (wide search, the block search on the last lost frame,
// the end of tracking), then touched again on its return.
uint64_t GoneForGood720() {
  const Scene scene(1280, 720, 5);
  const Scene::Path path{400, 360, 3, 2};
  Host host;
  for (int i = 0; i < 140; ++i) {
    Frame f = scene.Render(i, path, 56, i < 10 || i >= 126, kNv21);
    if (i == 0 || i == 127) host.TouchPixel(path.x0 + path.vx * i, path.y0 - 3 * path.amp, 1280, 720);
    host.Process(&f, Settings{});
  }
  return host.digest();
}

// Full HD NV12: hidden from frame 12 for about 100 lost frames. The disc is back in view just in
// time for its fifth valid frame in a row to be the one frame of the block search, which decides
// the recovery.
uint64_t LongLossFullHd() {
  constexpr int kBack = 113;
  const Scene scene(1920, 1080, 19);
  const Scene::Path path{1300, 700, -5, 3};
  Host host;
  for (int i = 0; i < 125; ++i) {
    Frame f = scene.Render(i, path, 70, i < 12 || i >= kBack, kNv12);
    Settings s;
    s.format = kNv12;
    if (i == 0) host.TouchPixel(path.x0, path.y0 - 3 * path.amp, 1920, 1080);
    host.Process(&f, s);
  }
  return host.digest();
}

// Full HD NV12 (code 3): zoom steps, valid and invalid ratios (0, 11, NaN, the ends 1 and 10).
uint64_t ZoomSteps() {
  const Scene scene(1920, 1080, 3);
  const Scene::Path path{900, 520, 2, 3};
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const struct {
    int frame;
    float zoom;
  } steps[] = {{10, 2.0f}, {14, 0.0f}, {16, 3.0f},  {20, 1.5f}, {24, 11.0f}, {26, 1.0f},
               {30, 10.0f}, {34, nan}, {36, 1.0f}, {40, 4.0f}, {44, 1.0f}};
  Host host;
  float zoom = 1.0f;
  for (int i = 0; i < 50; ++i) {
    for (const auto& st : steps) {
      if (st.frame == i) zoom = st.zoom;
    }
    Frame f = scene.Render(i, path, 80, true, kNv12Venus);
    Settings s;
    s.format = kNv12Venus;
    s.zoom = zoom;
    if (i == 0) host.TouchPixel(path.x0, path.y0 - 3 * path.amp, 1920, 1080);
    host.Process(&f, s);
  }
  return host.digest();
}

// Preview size changes with and without a sensor type: 1280x720, 640x480 (4:3 sensor), 1920x1080
// (16:9 sensor), 810x600 (unknown sensor), 1280x720 (4:3 sensor).
uint64_t SizeChanges() {
  const struct {
    int from, w, h, sensor;
  } phases[] = {{0, 1280, 720, 0}, {20, 640, 480, 0}, {40, 1920, 1080, 1}, {60, 810, 600, -1}, {75, 1280, 720, 2}};
  constexpr int kFrames = 90;
  constexpr int kPhases = sizeof phases / sizeof phases[0];
  Host host;
  for (int k = 0; k < kPhases; ++k) {
    const auto& p = phases[k];
    const Scene scene(p.w, p.h, 13);
    const Scene::Path path{p.w * 3 / 10, p.h / 2, p.w / 320, 2};
    const int to = k + 1 < kPhases ? phases[k + 1].from : kFrames;
    for (int i = p.from; i < to; ++i) {
      Frame f = scene.Render(i - p.from, path, p.h / 12, true, kNv21);
      Settings s;
      s.sensor = p.sensor;
      if (i == 0) host.TouchPixel(path.x0, path.y0 - 3 * path.amp, p.w, p.h);
      host.Process(&f, s);
    }
  }
  return host.digest();
}

// 810x600 NV12 (odd working width 405): the disc runs into the right edge and out of the frame,
// then a touch at the far corner.
uint64_t OddWidthEdge() {
  const Scene scene(810, 600, 17);
  const Scene::Path path{560, 300, 7, 3};
  Host host;
  for (int i = 0; i < 60; ++i) {
    Frame f = scene.Render(i, path, 50, true, kNv12);
    Settings s;
    s.format = kNv12;
    if (i == 0) host.TouchPixel(path.x0, path.y0 - 3 * path.amp, 810, 600);
    if (i == 55) host.TouchFocus(1000, 1000);
    host.Process(&f, s);
  }
  return host.digest();
}

// 640x480 (no decimation): refused formats, frames before any touch, deinit and init in every
// order, a touch on a uniform frame, touches at the corner and with absurd coordinates.
uint64_t LifecycleAndRefusals() {
  const Scene scene(640, 480, 21);
  const Scene::Path path{200, 240, 4, 2};
  Frame uniform = plovix_test::MakeUniformFrame(640, 480, 120, 128, 128);
  Host host;
  for (int i = 0; i < 60; ++i) {
    Frame f = scene.Render(i, path, 40, true, kNv21);
    Settings s;
    if (i == 0) s.format = 0;
    if (i == 1) s.format = 8;
    if (i == 2) s.format = -3;
    if (i == 12) s.format = 4;
    if (i == 4 || i == 26 || i == 45) host.TouchPixel(path.x0 + path.vx * i, path.y0 - 3 * path.amp, 640, 480);
    if (i == 21) {
      host.Deinit();
      host.Init();
    }
    if (i == 30) host.Init();
    if (i == 35) {
      host.Deinit();
      host.Deinit();
      host.Init();
      host.TouchFocus(-1000, -1000);
    }
    if (i == 38) host.TouchFocus(std::numeric_limits<int>::max(), std::numeric_limits<int>::min());
    if (i == 40) {
      host.TouchFocus(0, 0);
      host.Process(&uniform, s);
      continue;
    }
    host.Process(&f, s);
  }
  return host.digest();
}

// Frames too small to decimate: a touch on a uniform 64x48 frame (the object would fill it, so
// selection fails), then at 64x48 and 36x30 (below the 40-pixel margin of the wide search) a disc
// tracked, then lost until tracking ends.
uint64_t TinyFrames() {
  Host host;
  Frame uniform = plovix_test::MakeUniformFrame(64, 48, 120, 128, 128);
  host.TouchFocus(0, 0);
  host.Process(&uniform, Settings{});
  for (const auto& size : {std::pair{64, 48}, std::pair{36, 30}}) {
    const Scene scene(size.first, size.second, 23);
    const Scene::Path path{size.first / 3, size.second / 2, 1, 1};
    for (int i = 0; i < 125; ++i) {
      Frame f = scene.Render(i % 20, path, size.second / 5, i < 15, kNv21);
      if (i == 0) host.TouchPixel(path.x0, path.y0 - 3 * path.amp, size.first, size.second);
      host.Process(&f, Settings{});
    }
  }
  return host.digest();
}

struct Session {
  const char* name;
  uint64_t (*run)();
  uint64_t expected;
};

TEST(Digest, EverySessionGivesItsRecordedDigest) {
  const Session sessions[] = {
      {"GlideFullHd", GlideFullHd, 0xce34a37b26da6214ull},
      {"HideAndReturn720", HideAndReturn720, 0x1035146be3fe13b6ull},
      {"GoneForGood720", GoneForGood720, 0xa50296ae233c9d90ull},
      {"LongLossFullHd", LongLossFullHd, 0xeab1961707e4bbc1ull},
      {"ZoomSteps", ZoomSteps, 0xb6fd4fcc99545572ull},
      {"SizeChanges", SizeChanges, 0xc4670346d9c395acull},
      {"OddWidthEdge", OddWidthEdge, 0x1c35a21ab96be6efull},
      {"LifecycleAndRefusals", LifecycleAndRefusals, 0x95c366b30f56d546ull},
      {"TinyFrames", TinyFrames, 0xb78131a6c558e463ull},
  };
  for (const Session& s : sessions) {
    const uint64_t got = s.run();
    char hex[32];
    std::snprintf(hex, sizeof hex, "0x%016" PRIx64, got);
    EXPECT_EQ(s.expected, got) << s.name << " now gives " << hex;
  }
}

}  // namespace
