// One whole replay: open the input, resolve the events, run the session with every writer, and
// put the output files in place only when everything succeeded.
#pragma once

#include <string>
#include <vector>

#include "options.h"
#include "run_stats.h"

namespace plovix_replay {

struct RunOutcome {
  std::string inputName;
  long frames = 0;
  StateCounts states;
  long touches = 0;
  TimingSummary timing;
  bool hasTruth = false;
  Accuracy accuracy;
  std::string outDir;
  std::vector<std::string> files;  // written into outDir
};

// Returns false with *error ("WHAT: what is wrong") and leaves no output file behind.
bool RunReplay(const Options& options, bool showProgress, RunOutcome* outcome, std::string* error);

// The text printed after a successful run.
std::string FormatSummary(const RunOutcome& outcome);

}  // namespace plovix_replay
