// Line plots over frame numbers as inline SVG, self-contained (no script, no external styles).
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace plovix_replay {

struct Series {
  std::string name;
  std::string colour;     // CSS colour
  std::vector<double> y;  // one value per frame from frame 0; NaN leaves a gap
  bool dashed = false;
  bool steps = false;  // hold each value until the next frame (for states)
};

struct PlotLayout {
  std::string title;
  std::string yLabel;
  long frames = 0;
  // Fixed y range and labelled ticks; when empty the range fits the data with plain ticks.
  std::vector<std::pair<double, std::string>> yTicks;
};

std::string SvgPlot(const PlotLayout& layout, const std::vector<Series>& series);

// Escapes &, <, >, " for HTML text and attributes.
std::string HtmlEscape(const std::string& text);

}  // namespace plovix_replay
