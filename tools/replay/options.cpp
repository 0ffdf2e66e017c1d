#include "options.h"

#include <algorithm>
#include <iterator>

#include "session.h"
#include "text_util.h"

namespace plovix_replay {
namespace {

constexpr int kMaxShrink = 16;

using Handler = bool (*)(const std::string& value, Options* o, std::string* what);

bool SetFormat(const std::string& v, Options* o, std::string* what) {
  if (v == "nv21" || v == std::to_string(kFormatNv21)) {
    o->packing = ChromaOrder::kVU;
    o->formatCode = kFormatNv21;
  } else if (v == "nv12" || v == std::to_string(kFormatNv12)) {
    o->packing = ChromaOrder::kUV;
    o->formatCode = kFormatNv12;
  } else {
    *what = "expected nv21 or nv12";
    return false;
  }
  return true;
}

bool SetRaw(const std::string& v, Options* o, std::string* what) {
  o->raw = true;
  if (!ParseSize(v, &o->rawWidth, &o->rawHeight)) *what = "expected WxH";
  return what->empty();
}

bool SetScale(const std::string& v, Options* o, std::string* what) {
  if (!ParseSize(v, &o->scaleWidth, &o->scaleHeight)) *what = "expected WxH";
  return what->empty();
}

bool SetFps(const std::string& v, Options* o, std::string* what) {
  const size_t sep = v.find_first_of("/:");
  int num = 0;
  int den = 1;
  const bool ok = sep == std::string::npos
                      ? ParseInt(v, &num)
                      : ParseInt(v.substr(0, sep), &num) && ParseInt(v.substr(sep + 1), &den);
  if (!ok || num <= 0 || den <= 0) {
    *what = "expected a positive rate, N or N/D";
    return false;
  }
  o->fpsSet = true;
  o->fps = {num, den};
  return true;
}

bool SetOut(const std::string& v, Options* o, std::string* what) {
  o->outDir = v;
  if (v.empty()) *what = "expected a folder";
  return what->empty();
}

bool SetFrames(const std::string& v, Options* o, std::string* what) {
  if (!ParseLong(v, &o->maxFrames) || o->maxFrames <= 0) *what = "expected a positive count";
  return what->empty();
}

bool SetContactEvery(const std::string& v, Options* o, std::string* what) {
  if (!ParseInt(v, &o->contactEvery) || o->contactEvery <= 0) *what = "expected a positive count";
  return what->empty();
}

bool SetThumbWidth(const std::string& v, Options* o, std::string* what) {
  if (!ParseInt(v, &o->thumbWidth) || o->thumbWidth < 16 || o->thumbWidth > 4096) {
    *what = "expected a width from 16 to 4096";
  }
  return what->empty();
}

bool SetShrink(const std::string& v, Options* o, std::string* what) {
  if (!ParseInt(v, &o->annotateShrink) || o->annotateShrink < 1 || o->annotateShrink > kMaxShrink) {
    *what = "expected a factor from 1 to " + std::to_string(kMaxShrink);
  }
  return what->empty();
}

bool SetScript(const std::string& v, Options* o, std::string* what) {
  std::string error;
  if (LoadScript(v, &o->events, &error)) return true;
  *what = error;
  return false;
}

struct ValueOption {
  const char* name;
  Handler handler;
};

constexpr ValueOption kValueOptions[] = {
    {"--format", SetFormat},
    {"--raw", SetRaw},
    {"--scale", SetScale},
    {"--fps", SetFps},
    {"--out", SetOut},
    {"--frames", SetFrames},
    {"--contact-every", SetContactEvery},
    {"--thumb-width", SetThumbWidth},
    {"--annotate-shrink", SetShrink},
    {"--script", SetScript},
};

constexpr const char* kEventOptions[] = {"--touch", "--touch-px", "--zoom", "--sensor"};

bool SetFlag(const std::string& name, Options* o) {
  if (name == "--help" || name == "-h") {
    o->help = true;
  } else if (name == "--demo") {
    o->demo = true;
  } else if (name == "--real-clock") {
    o->realClock = true;
  } else if (name == "--no-annotated") {
    o->annotated = false;
  } else if (name == "--quiet" || name == "-q") {
    o->quiet = true;
  } else {
    return false;
  }
  return true;
}

bool CheckCombination(const Options& o, std::string* error) {
  if (o.help) return true;
  if (o.demo && !o.input.empty()) {
    *error = o.input + ": --demo takes no input file";
  } else if (o.demo && o.raw) {
    *error = "--raw: not with --demo";
  } else if (!o.demo && o.input.empty()) {
    *error = "no input: give a .y4m file, - for a Y4M stream on stdin, or --demo (see --help)";
  }
  return error->empty();
}

}  // namespace

bool ParseOptions(const std::vector<std::string>& args, Options* options, std::string* error) {
  Options o;
  error->clear();
  for (size_t i = 1; i < args.size(); ++i) {
    const std::string& arg = args[i];
    if (arg.size() < 2 || arg[0] != '-' || arg == "-") {
      if (!o.input.empty()) {
        *error = arg + ": more than one input (already have " + o.input + ")";
        return false;
      }
      o.input = arg;
      continue;
    }
    if (SetFlag(arg, &o)) continue;
    const size_t eq = arg.find('=');
    const std::string name = arg.substr(0, eq);
    const bool known = std::any_of(std::begin(kValueOptions), std::end(kValueOptions),
                                   [&](const ValueOption& v) { return name == v.name; }) ||
                       std::any_of(std::begin(kEventOptions), std::end(kEventOptions),
                                   [&](const char* e) { return name == e; });
    if (!known) {
      *error = arg + ": unknown option (see --help)";
      return false;
    }
    std::string value;
    if (eq != std::string::npos) {
      value = arg.substr(eq + 1);
    } else if (i + 1 < args.size()) {
      value = args[++i];
    } else {
      *error = name + ": missing value";
      return false;
    }
    for (const char* e : kEventOptions) {
      if (name != e) continue;
      Event event;
      if (!ParseEventOption(name, value, &event, error)) return false;
      o.events.push_back(event);
    }
    for (const ValueOption& v : kValueOptions) {
      if (name != v.name) continue;
      std::string what;
      if (!v.handler(value, &o, &what)) {
        // Script errors already name their file and line.
        *error = name == "--script" ? what : name + " " + value + ": " + what;
        return false;
      }
    }
  }
  if (!CheckCombination(o, error)) return false;
  *options = o;
  return true;
}

std::string HelpText() {
  return R"(Usage:
  plovix-replay [options] CLIP.y4m        replay a Y4M clip (4:2:0, 8 bit)
  plovix-replay [options] -               replay a Y4M stream from standard input
  plovix-replay [options] --raw WxH FILE  replay raw preview dumps (FILE or -)
  plovix-replay [options] --demo          replay the built-in synthetic clip

Replays preview frames through libplovixengine as a camera app would and writes, into the
output folder: frames.csv, engine.log, annotated.y4m, contact.png and report.html.

Input:
  --raw WxH            input is raw frames of WxH, back to back, in the --format layout
  --format nv21|nv12   layout frames are fed in (and raw input is read in): nv21 is sent as
                       format code 2, nv12 as code 7 (default nv21)
  --fps N[/D]          frame rate for the replay clock (default: the Y4M header's, else 30)
  --scale WxH          resize frames (nearest neighbour) to WxH before feeding them
  --frames N           stop after N frames
  --demo               the built-in 1920x1080 clip with a known object position; touches the
                       object on frame 0, zooms in part way, and prints accuracy and speed

Events (FRAME counts from 0; zoom and sensor hold from their frame on):
  --touch FRAME:X,Y    touch at X,Y in focus units (-1000..1000 across the frame)
  --touch-px FRAME:x,y touch at pixel x,y of the input clip
  --zoom FRAME:RATIO   zoom ratio from FRAME on (default 1.0)
  --sensor FRAME:TYPE  sensor type from FRAME on: -1 unknown (default), 1 16:9, other 4:3
  --script FILE        events from FILE, one per line:
                         touch FRAME X Y | touch-px FRAME x y | zoom FRAME RATIO |
                         sensor FRAME TYPE | size FRAME WxH | format FRAME CODE |
                         stride FRAME N|auto | reinit FRAME          (# starts a comment)

Output:
  --out DIR            output folder, created if missing (default replay-out)
  --contact-every N    one contact-sheet thumbnail every N frames (default 10)
  --thumb-width N      thumbnail width in pixels (default 240)
  --annotate-shrink N  annotated.y4m at 1/N of the frame size (default 1; demo 2)
  --no-annotated       do not write annotated.y4m
  --real-clock         give the engine the real time of day instead of the clip's time
  --quiet, -q          no progress bar and no summary on success
  --help, -h           this text

Errors print one line, "plovix-replay: WHAT: what is wrong", exit with status 1 (2 for a bad
command line), and leave no output file behind.
)";
}

}  // namespace plovix_replay
