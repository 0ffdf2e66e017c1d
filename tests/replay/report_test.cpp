#include "report.h"

#include <cmath>

#include "gtest/gtest.h"
#include "svg_plot.h"

namespace plovix_replay {
namespace {

int Count(const std::string& text, const std::string& what) {
  int n = 0;
  for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
  return n;
}

TEST(Report, PlotLinesBreakAtMissingValues) {
  Series s{"x", "red", {1.0, 2.0, NAN, NAN, 3.0, 4.0}, false, false};
  const std::string svg = SvgPlot({"t", "y", 6, {}}, {s});
  EXPECT_EQ(Count(svg, "<path"), 1);
  EXPECT_EQ(Count(svg, " M"), 1);  // the second run starts a new subpath
  EXPECT_EQ(Count(svg, "L"), 2);
  // A series with no value at all draws nothing rather than an empty path.
  Series empty{"e", "blue", {NAN, NAN}, false, false};
  EXPECT_EQ(Count(SvgPlot({"t", "y", 2, {}}, {empty}), "<path"), 0);
}

TEST(Report, OnePageWithPlotsAndTheEmbeddedSheet) {
  RunStats stats(640, 480);
  std::string error;
  for (long i = 0; i < 3; ++i) {
    FrameResult r;
    r.index = i;
    r.record.nTrackState = 2;
    r.record.nRight = 100;
    r.record.nBottom = 100;
    stats.OnFrame(r, Picture(), &error);
  }
  ReportInput in;
  in.title = "plovix-replay: <clip>";
  in.stats = &stats;
  in.contactPng = {1, 2, 3, 0xfb, 0xff};  // a padded tail and both high digits
  const std::string html = BuildReport(in);
  EXPECT_EQ(Count(html, "<svg"), 3);  // state, centre, velocity
  EXPECT_EQ(Count(html, "<title>plovix-replay: &lt;clip&gt;</title>"), 1);
  EXPECT_EQ(Count(html, "src=\"data:image/png;base64,AQID+/8=\""), 1);
  // Nothing is fetched: the only URLs are the SVG namespace names.
  EXPECT_EQ(Count(html, "http"), Count(html, "xmlns=\"http://www.w3.org/2000/svg\""));

  const std::vector<TruthPoint> truth(3, TruthPoint{320, 240, true});
  in.truth = &truth;
  EXPECT_EQ(Count(BuildReport(in), "<svg"), 4);
}

}  // namespace
}  // namespace plovix_replay
