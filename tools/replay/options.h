// The command line of plovix-replay.
#pragma once

#include <string>
#include <vector>

#include "events.h"
#include "frame_source.h"
#include "picture.h"

namespace plovix_replay {

constexpr int kDefaultContactEvery = 10;
constexpr int kDefaultThumbWidth = 240;
constexpr int kDemoAnnotateShrink = 2;

struct Options {
  bool help = false;
  bool demo = false;
  std::string input;  // a path, or "-" for standard input
  bool raw = false;
  int rawWidth = 0;
  int rawHeight = 0;
  ChromaOrder packing = ChromaOrder::kVU;
  int formatCode = 2;
  bool fpsSet = false;
  FrameRate fps;
  int scaleWidth = 0;
  int scaleHeight = 0;
  std::vector<Event> events;  // as given, pixel touches not yet converted
  std::string outDir = "replay-out";
  long maxFrames = -1;
  bool realClock = false;
  int contactEvery = kDefaultContactEvery;
  int thumbWidth = kDefaultThumbWidth;
  int annotateShrink = 0;  // 0: 1 for clips, kDemoAnnotateShrink for the demo
  bool annotated = true;
  bool quiet = false;
};

// argv[0] is skipped. Returns false with *error ("WHAT: what is wrong") on a bad command line.
bool ParseOptions(const std::vector<std::string>& args, Options* options, std::string* error);

std::string HelpText();

}  // namespace plovix_replay
