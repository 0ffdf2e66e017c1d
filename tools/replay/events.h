// Session events: touches, zoom and sensor changes, preview size, format and stride changes and
// re-initialisation, from command-line options or a script with one event per line.
#pragma once

#include <string>
#include <vector>

namespace plovix_replay {

enum class EventKind { kTouch, kZoom, kSensor, kSize, kFormat, kStride, kReinit };

constexpr int kStrideAuto = -1;  // stride follows the frame width

struct Event {
  long frame = 0;
  EventKind kind = EventKind::kTouch;
  int x = 0;  // touch, focus units once resolved
  int y = 0;
  bool inPixels = false;  // touch given in input pixels, converted by ResolveEvents
  float zoom = 0.0f;
  int sensor = 0;
  int width = 0;  // size
  int height = 0;
  int format = 0;
  int stride = kStrideAuto;
  std::string origin;  // where it came from, for messages: "--touch 3:0,0" or "session.txt:12"
};

// One of --touch FRAME:X,Y, --touch-px FRAME:x,y, --zoom FRAME:RATIO, --sensor FRAME:TYPE.
bool ParseEventOption(const std::string& option, const std::string& value, Event* event,
                      std::string* error);

// Script text, one event per line: "touch FRAME X Y", "touch-px FRAME x y", "zoom FRAME R",
// "sensor FRAME T", "size FRAME WxH", "format FRAME CODE", "stride FRAME N|auto",
// "reinit FRAME"; '#' starts a comment. name prefixes the origin of each event and of errors.
bool ParseScript(const std::string& text, const std::string& name, std::vector<Event>* events,
                 std::string* error);
bool LoadScript(const std::string& path, std::vector<Event>* events, std::string* error);

// Converts pixel touches to focus units of a width x height input (see PixelToFocus),
// checks every event against the clip's frame count (skipped when -1) and orders them by frame,
// keeping the given order within a frame.
bool ResolveEvents(std::vector<Event>* events, int width, int height, long frameCount,
                   std::string* error);

// The smallest focus unit (-1000 left or top edge, +1000 right or bottom edge) at or right of the
// left edge of pixel p: the engine's truncating conversion takes it back to p itself whenever a
// focus unit is no wider than a pixel (sizes up to 2000).
int PixelToFocus(int p, int size);
// The pixel position of focus unit f in size pixels, not rounded.
double FocusToPixel(int f, int size);

}  // namespace plovix_replay
