// Reads YUV4MPEG2 (4:2:0, 8 bit) as ffmpeg's yuv4mpegpipe muxer writes it, from a file or a pipe.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

#include "frame_source.h"

namespace plovix_replay {

struct Y4mHeader {
  int width = 0;
  int height = 0;
  FrameRate rate;
};

// Parses the header line without its "YUV4MPEG2" signature and newline, e.g.
// " W1920 H1080 F30000:1001 Ip A1:1 C420jpeg". Returns false with *error set on anything the
// reader cannot handle.
bool ParseY4mHeader(const std::string& line, Y4mHeader* header, std::string* error);

class Y4mReader : public FrameSource {
 public:
  // Takes ownership of file, also on failure (closing it unless it is stdin). When seekable, the
  // frames are counted up front, so a truncated or malformed frame is reported before any is
  // processed.
  static std::unique_ptr<Y4mReader> Open(std::FILE* file, bool seekable, std::string* error);

  ~Y4mReader() override;
  int Width() const override { return header_.width; }
  int Height() const override { return header_.height; }
  FrameRate Rate() const override { return header_.rate; }
  long KnownFrameCount() const override { return frameCount_; }
  ReadStatus Read(Picture* p, std::string* error) override;

 private:
  Y4mReader(std::FILE* file, const Y4mHeader& header) : file_(file), header_(header) {}
  bool CountFrames(std::string* error);
  ReadStatus ReadMarker(std::string* error);

  std::FILE* file_;
  Y4mHeader header_;
  long frameCount_ = -1;
  long framesRead_ = 0;
};

}  // namespace plovix_replay
