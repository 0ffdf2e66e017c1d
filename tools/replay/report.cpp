#include "report.h"

#include <cmath>
#include <cstdio>

#include "base64.h"
#include "svg_plot.h"

namespace plovix_replay {
namespace {

constexpr double kRefusedLevel = 0.0;  // where refused frames sit in the state plot

std::string Fixed(double v, int decimals) {
  char buf[64];
  std::snprintf(buf, sizeof(buf), "%.*f", decimals, v);
  return buf;
}

std::string Row(const std::string& name, const std::string& value) {
  return "<tr><th>" + HtmlEscape(name) + "</th><td>" + HtmlEscape(value) + "</td></tr>\n";
}

std::string CountWithShare(long n, long total) {
  return std::to_string(n) + " (" + Fixed(total > 0 ? 100.0 * n / total : 0.0, 1) + "%)";
}

std::string SummaryTable(const ReportInput& in) {
  const RunStats& s = *in.stats;
  const long total = static_cast<long>(s.frames().size());
  const StateCounts c = s.CountStates();
  const TimingSummary t = s.Timing();
  std::string out = "<table class=\"summary\">\n";
  out += Row("input", in.inputDescription);
  out += Row("frames", std::to_string(total));
  out += Row("tracking (2)", CountWithShare(c.tracking, total));
  out += Row("temporarily lost (3)", CountWithShare(c.tempLost, total));
  out += Row("not tracking (1)", CountWithShare(c.notTracking, total));
  if (c.refused > 0) out += Row("refused (return -1)", CountWithShare(c.refused, total));
  if (c.other > 0) out += Row("other states", CountWithShare(c.other, total));
  out += Row("touches", std::to_string(s.Touches()));
  out += Row("time per frame", "median " + Fixed(t.median, 3) + " ms, p90 " + Fixed(t.p90, 3) +
                                   " ms, max " + Fixed(t.max, 3) + " ms, mean " + Fixed(t.mean, 3) +
                                   " ms");
  if (in.truth != nullptr) {
    const Accuracy a = s.Score(*in.truth);
    out += Row("centre error", "mean " + Fixed(a.meanError, 1) + " px, p90 " +
                                   Fixed(a.p90Error, 1) + " px over " +
                                   std::to_string(a.scoredFrames) + " frames with a box");
    out += Row("box contains the true centre", CountWithShare(a.containedFrames, a.visibleFrames) +
                                                   " of " + std::to_string(a.visibleFrames) +
                                                   " frames where the object shows");
  }
  return out + "</table>\n";
}

std::string StatePlot(const RunStats& s) {
  Series state{"state", "#1f6feb", {}, false, true};
  for (const FrameSummary& f : s.frames()) {
    state.y.push_back(f.ret != 0 ? kRefusedLevel : static_cast<double>(f.state));
  }
  PlotLayout layout{
      "Track state",
      "state",
      static_cast<long>(s.frames().size()),
      {{kRefusedLevel, "refused"}, {1, "not tracking"}, {2, "tracking"}, {3, "temp lost"}}};
  return SvgPlot(layout, {state});
}

std::string CentrePlot(const RunStats& s, const std::vector<TruthPoint>* truth) {
  Series x{"box x", "#d62728", {}, false, false};
  Series y{"box y", "#1f77b4", {}, false, false};
  Series tx{"true x", "#d62728", {}, true, false};
  Series ty{"true y", "#1f77b4", {}, true, false};
  for (const FrameSummary& f : s.frames()) {
    x.y.push_back(f.hasBox ? f.centreX : NAN);
    y.y.push_back(f.hasBox ? f.centreY : NAN);
    const bool known = truth != nullptr && static_cast<size_t>(f.index) < truth->size();
    tx.y.push_back(known ? (*truth)[f.index].x : NAN);
    ty.y.push_back(known ? (*truth)[f.index].y : NAN);
  }
  PlotLayout layout{
      "Box centre (input pixels)", "pixels", static_cast<long>(s.frames().size()), {}};
  if (truth == nullptr) return SvgPlot(layout, {x, y});
  return SvgPlot(layout, {x, y, tx, ty});
}

std::string VelocityPlot(const RunStats& s) {
  Series vx{"vx", "#d62728", {}, false, false};
  Series vy{"vy", "#1f77b4", {}, false, false};
  for (const FrameSummary& f : s.frames()) {
    vx.y.push_back(f.hasBox ? f.velocityX : NAN);
    vy.y.push_back(f.hasBox ? f.velocityY : NAN);
  }
  PlotLayout layout{
      "Velocity (fed pixels per second)", "px/s", static_cast<long>(s.frames().size()), {}};
  return SvgPlot(layout, {vx, vy});
}

std::string ErrorPlot(const RunStats& s, const std::vector<TruthPoint>& truth) {
  Series e{"centre error", "#9467bd", {}, false, false};
  for (const FrameSummary& f : s.frames()) {
    const bool known = static_cast<size_t>(f.index) < truth.size() && truth[f.index].visible;
    e.y.push_back(known && f.hasBox
                      ? std::hypot(f.centreX - truth[f.index].x, f.centreY - truth[f.index].y)
                      : NAN);
  }
  PlotLayout layout{
      "Centre error (input pixels)", "pixels", static_cast<long>(s.frames().size()), {}};
  return SvgPlot(layout, {e});
}

constexpr char kStyle[] =
    "body{font-family:sans-serif;margin:24px;color:#222;background:#fff}"
    "h1{font-size:20px}h2{font-size:16px;margin-top:28px}"
    "table.summary{border-collapse:collapse}"
    "table.summary th{text-align:left;padding:3px 16px 3px 0;font-weight:normal;color:#555}"
    "table.summary td{padding:3px 0}"
    "svg.plot{display:block;margin:12px 0;max-width:100%;height:auto}"
    "img.contact{max-width:100%;border:1px solid #ccc}";

}  // namespace

std::string BuildReport(const ReportInput& in) {
  const RunStats& s = *in.stats;
  std::string out = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n";
  out += "<title>" + HtmlEscape(in.title) + "</title>\n<style>" + kStyle + "</style>\n";
  out += "</head>\n<body>\n<h1>" + HtmlEscape(in.title) + "</h1>\n";
  out += SummaryTable(in);
  out += "<h2>Over time</h2>\n";
  out += StatePlot(s);
  out += CentrePlot(s, in.truth);
  if (in.truth != nullptr) out += ErrorPlot(s, *in.truth);
  out += VelocityPlot(s);
  out += "<h2>Contact sheet (every " + std::to_string(in.contactEvery) +
         " frames; green: measured box, magenta: predicted box)</h2>\n";
  // onload marks the image in the DOM, so a headless check can tell that it decoded.
  out +=
      "<img class=\"contact\" alt=\"contact sheet\" onload=\"this.dataset.loaded='yes'\" "
      "src=\"data:image/png;base64," +
      Base64Encode(in.contactPng) + "\">\n";
  return out + "</body>\n</html>\n";
}

}  // namespace plovix_replay
