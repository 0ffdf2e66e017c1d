#include "replay_app.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "annotated_writer.h"
#include "contact_sheet.h"
#include "csv_writer.h"
#include "demo_clip.h"
#include "log_writer.h"
#include "output_dir.h"
#include "png_writer.h"
#include "progress.h"
#include "raw_reader.h"
#include "report.h"
#include "session.h"
#include "y4m_reader.h"

namespace plovix_replay {
namespace {

struct Input {
  std::unique_ptr<FrameSource> source;
  DemoClip* demo = nullptr;  // the same object when replaying the demo
  std::string name;
};

std::FILE* OpenInputFile(const std::string& path, bool* seekable, std::string* error) {
  if (path == "-") {
    *seekable = false;
    return stdin;
  }
  struct stat st;
  if (stat(path.c_str(), &st) != 0) {
    *error = path + ": cannot open: " + std::strerror(errno);
    return nullptr;
  }
  if (S_ISDIR(st.st_mode)) {
    *error = path + ": is a folder, not a clip";
    return nullptr;
  }
  std::FILE* f = std::fopen(path.c_str(), "rb");
  if (f == nullptr) *error = path + ": cannot open: " + std::strerror(errno);
  *seekable = S_ISREG(st.st_mode);
  return f;
}

bool OpenInput(const Options& o, Input* in, std::string* error) {
  if (o.demo) {
    auto demo = std::make_unique<DemoClip>(o.maxFrames > 0 ? o.maxFrames : kDemoFrames);
    in->demo = demo.get();
    in->source = std::move(demo);
    in->name = "demo";
    return true;
  }
  in->name = o.input == "-" ? "stdin" : o.input;
  bool seekable = false;
  std::FILE* f = OpenInputFile(o.input, &seekable, error);
  if (f == nullptr) return false;
  std::string what;
  if (o.raw) {
    in->source = RawReader::Open(f, seekable, o.rawWidth, o.rawHeight, o.packing,
                                 o.fpsSet ? o.fps : FrameRate(), &what);
  } else {
    in->source = Y4mReader::Open(f, seekable, &what);
  }
  if (in->source == nullptr) {
    *error = in->name + ": " + what;
    return false;
  }
  if (in->source->KnownFrameCount() == 0) {
    *error = in->name + ": no frames";
    return false;
  }
  return true;
}

std::string DescribeInput(const Options& o, const Input& in, const SessionOptions& s) {
  const FrameSource& src = *in.source;
  std::string text = in.name + ", " + std::to_string(src.Width()) + "x" +
                     std::to_string(src.Height()) + ", " + std::to_string(s.rate.num) + "/" +
                     std::to_string(s.rate.den) + " fps; fed as " +
                     (o.packing == ChromaOrder::kVU ? "NV21" : "NV12") + " (format " +
                     std::to_string(o.formatCode) + ")";
  if (o.scaleWidth > 0) {
    text += " at " + std::to_string(o.scaleWidth) + "x" + std::to_string(o.scaleHeight);
  }
  return text;
}

bool WriteTruth(const std::vector<TruthPoint>& truth, std::FILE* out) {
  std::fputs("frame,x,y,visible\n", out);
  for (size_t i = 0; i < truth.size(); ++i) {
    std::fprintf(out, "%zu,%.2f,%.2f,%d\n", i, truth[i].x, truth[i].y, truth[i].visible ? 1 : 0);
  }
  return true;
}

// Writers that need the whole run: the contact sheet, the report and the demo's truth.
bool WriteSummaries(const Options& o, const Input& in, const SessionOptions& s,
                    const RunStats& stats, const ContactSheet& sheet, OutputDir* out,
                    std::string* error) {
  std::vector<uint8_t> png;
  if (!EncodePng(sheet.Compose(), &png, error)) {
    *error = out->PathOf("contact.png") + ": " + *error;
    return false;
  }
  std::FILE* pngFile = out->Create("contact.png", error);
  if (pngFile == nullptr) return false;
  std::fwrite(png.data(), 1, png.size(), pngFile);

  ReportInput report;
  report.title = "plovix-replay: " + in.name;
  report.inputDescription = DescribeInput(o, in, s);
  report.stats = &stats;
  report.truth = in.demo != nullptr ? &in.demo->Truth() : nullptr;
  report.contactPng = std::move(png);
  report.contactEvery = o.contactEvery;
  std::FILE* html = out->Create("report.html", error);
  if (html == nullptr) return false;
  std::fputs(BuildReport(report).c_str(), html);

  if (in.demo != nullptr) {
    std::FILE* truth = out->Create("truth.csv", error);
    if (truth == nullptr) return false;
    WriteTruth(in.demo->Truth(), truth);
  }
  return true;
}

void FillOutcome(const Input& in, const RunStats& stats, const std::string& outDir, bool annotated,
                 RunOutcome* outcome) {
  outcome->inputName = in.name;
  outcome->frames = static_cast<long>(stats.frames().size());
  outcome->states = stats.CountStates();
  outcome->touches = stats.Touches();
  outcome->timing = stats.Timing();
  outcome->hasTruth = in.demo != nullptr;
  if (outcome->hasTruth) outcome->accuracy = stats.Score(in.demo->Truth());
  outcome->outDir = outDir;
  outcome->files = {"frames.csv", "engine.log"};
  if (annotated) outcome->files.push_back("annotated.y4m");
  outcome->files.push_back("contact.png");
  outcome->files.push_back("report.html");
  if (in.demo != nullptr) outcome->files.push_back("truth.csv");
}

SessionOptions MakeSessionOptions(const Options& o, const Input& in) {
  SessionOptions s;
  s.sourceName = in.name;
  s.rate = o.fpsSet ? o.fps : in.source->Rate();
  s.packing = o.packing;
  s.formatCode = o.formatCode;
  s.scaleWidth = o.scaleWidth;
  s.scaleHeight = o.scaleHeight;
  s.realClock = o.realClock;
  s.maxFrames = o.maxFrames;
  return s;
}

// The demo's own events first, then the user's, checked against the frames the run will have.
bool CollectEvents(const Options& o, const Input& in, std::vector<Event>* events,
                   std::string* error) {
  *events = in.demo != nullptr ? in.demo->Events() : std::vector<Event>();
  events->insert(events->end(), o.events.begin(), o.events.end());
  long count = in.source->KnownFrameCount();
  if (o.maxFrames > 0 && (count < 0 || count > o.maxFrames)) count = o.maxFrames;
  return ResolveEvents(events, in.source->Width(), in.source->Height(), count, error);
}

}  // namespace

bool RunReplay(const Options& o, bool showProgress, RunOutcome* outcome, std::string* error) {
  Input in;
  std::vector<Event> events;
  if (!OpenInput(o, &in, error) || !CollectEvents(o, in, &events, error)) return false;
  const SessionOptions s = MakeSessionOptions(o, in);

  OutputDir out;
  if (!out.Prepare(o.outDir, error)) return false;
  std::FILE* csv = out.Create("frames.csv", error);
  std::FILE* log = csv != nullptr ? out.Create("engine.log", error) : nullptr;
  std::FILE* video = log != nullptr && o.annotated ? out.Create("annotated.y4m", error) : nullptr;
  if (log == nullptr || (o.annotated && video == nullptr)) return false;

  CsvWriter csvWriter(csv);
  LogWriter logWriter(log);
  const int shrink = o.annotateShrink > 0 ? o.annotateShrink : (o.demo ? kDemoAnnotateShrink : 1);
  std::unique_ptr<AnnotatedWriter> videoWriter;
  if (video != nullptr) videoWriter = std::make_unique<AnnotatedWriter>(video, s.rate, shrink);
  ContactSheet sheet(o.contactEvery, o.thumbWidth);
  RunStats stats(in.source->Width(), in.source->Height());

  Session session(in.source.get(), events, s);
  session.AddObserver(&csvWriter);
  session.AddObserver(&logWriter);
  if (videoWriter) session.AddObserver(videoWriter.get());
  session.AddObserver(&sheet);
  session.AddObserver(&stats);
  ProgressBar bar(stderr);
  if (showProgress) session.SetProgress([&bar](long done, long total) { bar.Update(done, total); });
  const bool ran = session.Run(error);
  bar.Finish();
  if (!ran) return false;
  if (stats.frames().empty()) {
    *error = in.name + ": no frames";
    return false;
  }
  if (!WriteSummaries(o, in, s, stats, sheet, &out, error) || !out.Commit(error)) return false;
  FillOutcome(in, stats, o.outDir, o.annotated, outcome);
  return true;
}

std::string FormatSummary(const RunOutcome& r) {
  char buf[512];
  std::string text;
  const StateCounts& c = r.states;
  std::snprintf(buf, sizeof(buf),
                "%s: %ld frames: %ld tracking, %ld temporarily lost, %ld not tracking",
                r.inputName.c_str(), r.frames, c.tracking, c.tempLost, c.notTracking);
  text += buf;
  if (c.refused > 0) text += ", " + std::to_string(c.refused) + " refused";
  if (c.other > 0) text += ", " + std::to_string(c.other) + " other";
  text += "; " + std::to_string(r.touches) + " touches\n";
  std::snprintf(buf, sizeof(buf), "time per frame: median %.3f ms, p90 %.3f ms, max %.3f ms\n",
                r.timing.median, r.timing.p90, r.timing.max);
  text += buf;
  if (r.hasTruth) {
    const Accuracy& a = r.accuracy;
    std::snprintf(buf, sizeof(buf),
                  "accuracy: centre error mean %.1f px, p90 %.1f px (%ld frames with a box); "
                  "box contains the true centre in %.1f%% of %ld frames where the object shows\n",
                  a.meanError, a.p90Error, a.scoredFrames, 100.0 * a.containedShare,
                  a.visibleFrames);
    text += buf;
  }
  text += "outputs in " + r.outDir + "/:";
  for (const std::string& f : r.files) text += " " + f;
  text += "\n";
  return text;
}

}  // namespace plovix_replay
