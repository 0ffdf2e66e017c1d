#include "annotated_writer.h"

#include <algorithm>

#include "annotate.h"
#include "scaler.h"

namespace plovix_replay {

void WriteY4mHeader(std::FILE* out, int width, int height, FrameRate rate) {
  std::fprintf(out, "YUV4MPEG2 W%d H%d F%d:%d Ip A1:1 C420jpeg\n", width, height, rate.num,
               rate.den);
}

void WriteY4mFrame(std::FILE* out, const Picture& p) {
  std::fputs("FRAME\n", out);
  std::fwrite(p.y.data(), 1, p.y.size(), out);
  std::fwrite(p.u.data(), 1, p.u.size(), out);
  std::fwrite(p.v.data(), 1, p.v.size(), out);
}

AnnotatedWriter::AnnotatedWriter(std::FILE* out, FrameRate rate, int shrink)
    : out_(out), rate_(rate), shrink_(std::max(1, shrink)) {}

bool AnnotatedWriter::OnFrame(const FrameResult& result, const Picture& fed,
                              std::string* /*error*/) {
  if (width_ == 0) {
    width_ = std::max(1, fed.width / shrink_);
    height_ = std::max(1, fed.height / shrink_);
    WriteY4mHeader(out_, width_, height_, rate_);
  }
  AnnotateFrame(result, fed, &annotated_);
  if (annotated_.width == width_ && annotated_.height == height_) {
    WriteY4mFrame(out_, annotated_);
  } else {
    ScaleNearest(annotated_, width_, height_, &scaled_);
    WriteY4mFrame(out_, scaled_);
  }
  return true;
}

}  // namespace plovix_replay
