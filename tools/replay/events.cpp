#include "events.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "text_util.h"

namespace plovix_replay {
namespace {

bool ParseFrame(const std::string& text, long* frame) {
  return ParseLong(text, frame) && *frame >= 0;
}

// The event's value words (after the frame) for a given kind; false when they do not parse.
bool ParseValues(EventKind kind, const std::vector<std::string>& v, Event* e) {
  switch (kind) {
    case EventKind::kTouch:
      return v.size() == 2 && ParseInt(v[0], &e->x) && ParseInt(v[1], &e->y);
    case EventKind::kZoom:
      return v.size() == 1 && ParseFloat(v[0], &e->zoom);
    case EventKind::kSensor:
      return v.size() == 1 && ParseInt(v[0], &e->sensor);
    case EventKind::kSize:
      return v.size() == 1 && ParseSize(v[0], &e->width, &e->height);
    case EventKind::kFormat:
      return v.size() == 1 && ParseInt(v[0], &e->format);
    case EventKind::kStride:
      if (v.size() == 1 && v[0] == "auto") {
        e->stride = kStrideAuto;
        return true;
      }
      return v.size() == 1 && ParseInt(v[0], &e->stride) && e->stride >= 0;
    case EventKind::kReinit:
      return v.empty();
  }
  return false;
}

struct ScriptWord {
  const char* word;
  EventKind kind;
  bool inPixels;
  const char* usage;
};

constexpr ScriptWord kScriptWords[] = {
    {"touch", EventKind::kTouch, false, "touch FRAME X Y"},
    {"touch-px", EventKind::kTouch, true, "touch-px FRAME x y"},
    {"zoom", EventKind::kZoom, false, "zoom FRAME RATIO"},
    {"sensor", EventKind::kSensor, false, "sensor FRAME TYPE"},
    {"size", EventKind::kSize, false, "size FRAME WxH"},
    {"format", EventKind::kFormat, false, "format FRAME CODE"},
    {"stride", EventKind::kStride, false, "stride FRAME N|auto"},
    {"reinit", EventKind::kReinit, false, "reinit FRAME"},
};

struct OptionForm {
  const char* option;
  EventKind kind;
  bool inPixels;
  const char* usage;
};

constexpr OptionForm kOptionForms[] = {
    {"--touch", EventKind::kTouch, false, "FRAME:X,Y"},
    {"--touch-px", EventKind::kTouch, true, "FRAME:x,y"},
    {"--zoom", EventKind::kZoom, false, "FRAME:RATIO"},
    {"--sensor", EventKind::kSensor, false, "FRAME:TYPE"},
};

bool ParseScriptLine(const std::vector<std::string>& words, Event* e, std::string* what) {
  for (const ScriptWord& w : kScriptWords) {
    if (words[0] != w.word) continue;
    e->kind = w.kind;
    e->inPixels = w.inPixels;
    const std::vector<std::string> values(words.begin() + std::min<size_t>(2, words.size()),
                                          words.end());
    if (words.size() < 2 || !ParseFrame(words[1], &e->frame) || !ParseValues(w.kind, values, e)) {
      *what = std::string("expected '") + w.usage + "'";
      return false;
    }
    return true;
  }
  *what = "unknown event '" + words[0] + "'";
  return false;
}

}  // namespace

bool ParseEventOption(const std::string& option, const std::string& value, Event* event,
                      std::string* error) {
  for (const OptionForm& form : kOptionForms) {
    if (option != form.option) continue;
    Event e;
    e.kind = form.kind;
    e.inPixels = form.inPixels;
    e.origin = option + " " + value;
    const size_t colon = value.find(':');
    const std::vector<std::string> values = colon == std::string::npos
                                                ? std::vector<std::string>()
                                                : Split(value.substr(colon + 1), ',');
    if (colon == std::string::npos || !ParseFrame(value.substr(0, colon), &e.frame) ||
        !ParseValues(form.kind, values, &e)) {
      *error = e.origin + ": expected " + form.usage;
      return false;
    }
    *event = e;
    return true;
  }
  *error = option + ": not an event option";
  return false;
}

bool ParseScript(const std::string& text, const std::string& name, std::vector<Event>* events,
                 std::string* error) {
  std::istringstream in(text);
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    const size_t hash = line.find('#');
    const std::vector<std::string> words = SplitWords(line.substr(0, hash));
    if (words.empty()) continue;
    Event e;
    e.origin = name + ":" + std::to_string(number);
    std::string what;
    if (!ParseScriptLine(words, &e, &what)) {
      *error = e.origin + ": " + what;
      return false;
    }
    events->push_back(e);
  }
  return true;
}

bool LoadScript(const std::string& path, std::vector<Event>* events, std::string* error) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    *error = path + ": cannot open script";
    return false;
  }
  std::ostringstream text;
  text << in.rdbuf();
  if (in.bad()) {
    *error = path + ": cannot read script";
    return false;
  }
  return ParseScript(text.str(), path, events, error);
}

int PixelToFocus(int p, int size) {
  const long long scaled = static_cast<long long>(p) * 2000 + size - 1;
  return static_cast<int>(scaled / size) - 1000;
}

double FocusToPixel(int f, int size) { return (f + 1000.0) * size / 2000.0; }

bool ResolveEvents(std::vector<Event>* events, int width, int height, long frameCount,
                   std::string* error) {
  for (Event& e : *events) {
    if (frameCount >= 0 && e.frame >= frameCount) {
      *error = e.origin + ": event at frame " + std::to_string(e.frame) + ", but the clip has " +
               std::to_string(frameCount) + " frames";
      return false;
    }
    if (!e.inPixels) continue;
    if (e.x < 0 || e.x >= width || e.y < 0 || e.y >= height) {
      *error = e.origin + ": touch outside the " + std::to_string(width) + "x" +
               std::to_string(height) + " input";
      return false;
    }
    e.x = PixelToFocus(e.x, width);
    e.y = PixelToFocus(e.y, height);
    e.inPixels = false;
  }
  std::stable_sort(events->begin(), events->end(),
                   [](const Event& a, const Event& b) { return a.frame < b.frame; });
  return true;
}

}  // namespace plovix_replay
