// plovix-replay: replays recorded or synthetic camera preview frames through libplovixengine.
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

#include "options.h"
#include "replay_app.h"

namespace {

constexpr int kExitRunFailed = 1;
constexpr int kExitUsage = 2;

void PrintError(const std::string& error) {
  std::fprintf(stderr, "plovix-replay: %s\n", error.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  using namespace plovix_replay;
  const std::vector<std::string> args(argv, argv + argc);
  Options options;
  std::string error;
  if (!ParseOptions(args, &options, &error)) {
    PrintError(error);
    return kExitUsage;
  }
  if (options.help) {
    std::fputs(HelpText().c_str(), stdout);
    return 0;
  }
  RunOutcome outcome;
  const bool progress = !options.quiet && isatty(STDERR_FILENO);
  if (!RunReplay(options, progress, &outcome, &error)) {
    PrintError(error);
    return kExitRunFailed;
  }
  if (!options.quiet) std::fputs(FormatSummary(outcome).c_str(), stdout);
  return 0;
}
