#include "svg_plot.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace plovix_replay {
namespace {

constexpr double kWidth = 900.0;
constexpr double kHeight = 260.0;
constexpr double kLeft = 64.0;
constexpr double kRight = 16.0;
constexpr double kTop = 30.0;
constexpr double kBottom = 36.0;
constexpr int kWantedTicks = 6;

std::string Num(double v) {
  char buf[32];
  std::snprintf(buf, sizeof(buf), "%.1f", v);
  return buf;
}

std::string Label(double v) {
  char buf[32];
  std::snprintf(buf, sizeof(buf), "%g", v);
  return buf;
}

// 1, 2 or 5 times a power of ten, so that range / step is about kWantedTicks.
double NiceStep(double range) {
  if (!(range > 0.0)) return 1.0;
  const double raw = range / kWantedTicks;
  const double power = std::pow(10.0, std::floor(std::log10(raw)));
  for (double m : {1.0, 2.0, 5.0}) {
    if (raw <= m * power) return m * power;
  }
  return 10.0 * power;
}

struct Frame {
  double xMax;
  double yMin;
  double yMax;
  double X(double frame) const { return kLeft + frame / xMax * (kWidth - kLeft - kRight); }
  double Y(double v) const {
    return kHeight - kBottom - (v - yMin) / (yMax - yMin) * (kHeight - kTop - kBottom);
  }
};

void FitRange(const PlotLayout& layout, const std::vector<Series>& series, Frame* f) {
  if (!layout.yTicks.empty()) {
    f->yMin = layout.yTicks.front().first;
    f->yMax = layout.yTicks.back().first;
    for (const auto& t : layout.yTicks) {
      f->yMin = std::min(f->yMin, t.first);
      f->yMax = std::max(f->yMax, t.first);
    }
  } else {
    f->yMin = INFINITY;
    f->yMax = -INFINITY;
    for (const Series& s : series) {
      for (double v : s.y) {
        if (std::isnan(v)) continue;
        f->yMin = std::min(f->yMin, v);
        f->yMax = std::max(f->yMax, v);
      }
    }
    if (f->yMin > f->yMax) {
      f->yMin = 0.0;
      f->yMax = 1.0;
    }
    const double step = NiceStep(f->yMax - f->yMin);
    f->yMin = std::floor(f->yMin / step) * step;
    f->yMax = std::ceil(f->yMax / step) * step;
  }
  const double pad = (f->yMax - f->yMin) * 0.05;
  if (pad == 0.0) {
    f->yMin -= 1.0;
    f->yMax += 1.0;
  } else {
    f->yMin -= pad;
    f->yMax += pad;
  }
}

std::string Axes(const PlotLayout& layout, const Frame& f) {
  std::string out;
  const double x0 = kLeft;
  const double x1 = kWidth - kRight;
  const double y1 = kHeight - kBottom;
  out += "<rect x=\"" + Num(x0) + "\" y=\"" + Num(kTop) + "\" width=\"" + Num(x1 - x0) +
         "\" height=\"" + Num(y1 - kTop) + "\" fill=\"#fbfbfb\" stroke=\"#999\"/>\n";
  std::vector<std::pair<double, std::string>> ticks = layout.yTicks;
  if (ticks.empty()) {
    const double step = NiceStep(f.yMax - f.yMin);
    for (double v = std::ceil(f.yMin / step) * step; v <= f.yMax; v += step) {
      ticks.push_back({v, Label(std::fabs(v) < step / 1e6 ? 0.0 : v)});
    }
  }
  for (const auto& t : ticks) {
    const double y = f.Y(t.first);
    out += "<line x1=\"" + Num(x0) + "\" y1=\"" + Num(y) + "\" x2=\"" + Num(x1) + "\" y2=\"" +
           Num(y) + "\" stroke=\"#ddd\"/>\n";
    out += "<text x=\"" + Num(x0 - 4) + "\" y=\"" + Num(y + 4) +
           "\" text-anchor=\"end\" font-size=\"11\">" + HtmlEscape(t.second) + "</text>\n";
  }
  const double step = NiceStep(f.xMax);
  for (double v = 0.0; v <= f.xMax + 1e-9; v += step) {
    const double x = f.X(v);
    out += "<line x1=\"" + Num(x) + "\" y1=\"" + Num(y1) + "\" x2=\"" + Num(x) + "\" y2=\"" +
           Num(y1 + 4) + "\" stroke=\"#999\"/>\n";
    out += "<text x=\"" + Num(x) + "\" y=\"" + Num(y1 + 16) +
           "\" text-anchor=\"middle\" font-size=\"11\">" + Label(v) + "</text>\n";
  }
  out += "<text x=\"" + Num((x0 + x1) / 2) + "\" y=\"" + Num(kHeight - 4) +
         "\" text-anchor=\"middle\" font-size=\"11\">frame</text>\n";
  out += "<text x=\"12\" y=\"" + Num((kTop + y1) / 2) +
         "\" font-size=\"11\" text-anchor=\"middle\" " + "transform=\"rotate(-90 12 " +
         Num((kTop + y1) / 2) + ")\">" + HtmlEscape(layout.yLabel) + "</text>\n";
  out += "<text x=\"" + Num(x0) + "\" y=\"18\" font-size=\"14\" font-weight=\"bold\">" +
         HtmlEscape(layout.title) + "</text>\n";
  return out;
}

std::string PathOf(const Series& s, const Frame& f) {
  std::string d;
  bool open = false;
  for (size_t i = 0; i < s.y.size(); ++i) {
    const double v = s.y[i];
    if (std::isnan(v)) {
      open = false;
      continue;
    }
    const double x = f.X(static_cast<double>(i));
    d += (open ? "L" : "M") + Num(x) + " " + Num(f.Y(v)) + " ";
    if (s.steps) {
      d += "L" + Num(f.X(std::min(static_cast<double>(i + 1), f.xMax))) + " " + Num(f.Y(v)) + " ";
    }
    open = true;
  }
  return d;
}

std::string Legend(const std::vector<Series>& series) {
  std::string out;
  double x = kWidth - kRight;
  for (auto it = series.rbegin(); it != series.rend(); ++it) {
    x -= 24.0 + 7.0 * static_cast<double>(it->name.size());
    out += "<line x1=\"" + Num(x) + "\" y1=\"14\" x2=\"" + Num(x + 16) + "\" y2=\"14\" stroke=\"" +
           it->colour + "\" stroke-width=\"2\"" + (it->dashed ? " stroke-dasharray=\"4 3\"" : "") +
           "/>\n";
    out += "<text x=\"" + Num(x + 20) + "\" y=\"18\" font-size=\"11\">" + HtmlEscape(it->name) +
           "</text>\n";
  }
  return out;
}

}  // namespace

std::string HtmlEscape(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

std::string SvgPlot(const PlotLayout& layout, const std::vector<Series>& series) {
  Frame f{static_cast<double>(std::max<long>(layout.frames, 2) - 1), 0.0, 1.0};
  FitRange(layout, series, &f);
  std::string out = "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"plot\" viewBox=\"0 0 " +
                    Num(kWidth) + " " + Num(kHeight) + "\" width=\"" + Num(kWidth) +
                    "\" height=\"" + Num(kHeight) + "\" font-family=\"sans-serif\">\n";
  out += Axes(layout, f);
  for (const Series& s : series) {
    const std::string d = PathOf(s, f);
    if (d.empty()) continue;
    out += "<path d=\"" + d + "\" fill=\"none\" stroke=\"" + s.colour + "\" stroke-width=\"1.5\"" +
           (s.dashed ? " stroke-dasharray=\"5 4\"" : "") + "/>\n";
  }
  out += Legend(series);
  return out + "</svg>\n";
}

}  // namespace plovix_replay
