// Shared test helpers: message capture through the public log callback, and synthetic frames.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "plovixengine.h"

namespace plovix_test {

struct LogLine {
  int priority;
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
  void Clear() { lines_.clear(); }

 private:
  static void Sink(int priority, const char* tag, const char* text, void* user);
  std::vector<LogLine> lines_;
};

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
