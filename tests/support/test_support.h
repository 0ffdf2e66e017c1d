// Shared test helpers: message capture through the public log callback, engine handles, the
// tracker's global state, and synthetic frames. Brings in what nearly every test file uses.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "engine/tuning.h"
#include "image/ot_types.h"
#include "model/model_state.h"
#include "plovixengine.h"
#include "tracking/tracker_state.h"

namespace plovix_test {

struct LogLine {
  int priority;
  std::string tag;
  std::string text;
};

// Captures every engine message while alive; restores the default sink afterwards.
class LogCapture {
 public:
  LogCapture();
  ~LogCapture();
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;

  const std::vector<LogLine>& lines() const { return lines_; }
  // Number of captured messages whose text equals text exactly.
  int Count(const std::string& text) const;
  bool Contains(const std::string& text) const { return Count(text) > 0; }
  // Number of captured messages whose text starts with prefix.
  int CountPrefix(const std::string& prefix) const;
  // Every captured message as "<priority> <text>", in order.
  std::vector<std::string> Tagged() const;
  void Clear() { lines_.clear(); }

 private:
  static void Sink(int priority, const char* tag, const char* text, void* user);
  std::vector<LogLine> lines_;
};

// An engine handle, created and initialised; deinitialised and destroyed when it goes out of scope.
class Engine {
 public:
  Engine();
  ~Engine();
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;
  void* get() const { return handle_; }

 private:
  void* handle_;
};

// Returns every tracker, model and tuning global to its initial value and frees the templates.
void ResetTrackerGlobals();

// A fixture that starts and ends each test with ResetTrackerGlobals().
class TrackerTest : public ::testing::Test {
 protected:
  void SetUp() override { ResetTrackerGlobals(); }
  void TearDown() override { ResetTrackerGlobals(); }
};

// The edges of r as left, top, right, bottom.
inline std::array<int, 4> Edges(const OT_RECT& r) { return {r.left, r.top, r.right, r.bottom}; }

// A weight image of exactly w * h bytes (so that a read past the end shows under ASan), all zero.
struct Weights {
  Weights(int width, int height) : w(width), h(height), px(static_cast<size_t>(width) * height) {}
  // Sets the first n pixels, row by row, of [left, right) x [top, bottom) to v.
  Weights& Fill(int left, int top, int right, int bottom, uint8_t v, int n = 1 << 30);
  int w, h;
  std::vector<uint8_t> px;
};

// A working image (line step = width) of grey luma 100 and neutral chroma: a luma plane, then one
// chroma pair per 2x2 block, one row more than h / 2.
struct WorkScene {
  static constexpr uint8_t kObjCb = 40, kObjCr = 200;  // the object's colour
  WorkScene(int width, int height);
  // Luma from f(x, y) over [l, r) x [t, b); with object set, also the object's chroma (evened edges).
  template <typename F>
  void Paint(int l, int t, int r, int b, F f, bool object = true) {
    for (int yy = t; yy < b; ++yy) {
      for (int xx = l; xx < r; ++xx) {
        y[yy * w + xx] = static_cast<uint8_t>(f(xx, yy));
        if (!object) continue;
        cbcr[(yy / 2) * w + (xx & ~1)] = kObjCb;
        cbcr[(yy / 2) * w + (xx & ~1) + 1] = kObjCr;
      }
    }
  }
  // The luma of [l, r) x [t, b), rows packed.
  std::vector<uint8_t> Crop(int l, int t, int r, int b) const;
  int w, h;
  std::vector<uint8_t> y, cbcr;
};

// Gives every bin of the tracker model for the object's colour the given weight.
void SetObjectWeight(uint8_t weight);

// A frame in host layout: luma plane plus an interleaved chroma plane of height/2 rows.
struct Frame {
  int width = 0;
  int height = 0;
  std::vector<uint8_t> y;
  std::vector<uint8_t> uv;
};

// A frame of one colour: every luma byte y, every chroma pair (c0, c1) in plane order.
Frame MakeUniformFrame(int width, int height, uint8_t y, uint8_t c0, uint8_t c1);

// Paints a filled disc of the given colour (centre and radius in frame pixels).
void PaintDisc(Frame* f, int cx, int cy, int radius, uint8_t y, uint8_t c0, uint8_t c1);

// Paints an axis-aligned rectangle [left, right) x [top, bottom).
void PaintRect(Frame* f, int left, int top, int right, int bottom, uint8_t y, uint8_t c0, uint8_t c1);

// Deterministic mid-grey texture with mild noise (fixed seed), neutral chroma.
Frame MakeTexturedFrame(int width, int height, uint32_t seed);

// A record pointing at f's planes, with the given format, stride = width, no request, no sensor,
// zoom 1.0.
PlovixStruct MakeRecord(Frame* f, int format = 2);

}  // namespace plovix_test
