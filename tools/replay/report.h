// report.html: one self-contained page for a run: the summary, plots of the state, the box
// centre and the velocity over time, and the contact sheet embedded as a data URI.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "run_stats.h"

namespace plovix_replay {

struct ReportInput {
  std::string title;
  std::string inputDescription;  // where the frames came from and how they were fed
  const RunStats* stats = nullptr;
  const std::vector<TruthPoint>* truth = nullptr;  // known true positions, or null
  std::vector<uint8_t> contactPng;
  int contactEvery = 1;
};

std::string BuildReport(const ReportInput& in);

}  // namespace plovix_replay
