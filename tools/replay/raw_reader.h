// Reads raw preview dumps: NV21 or NV12 frames of a known size stored back to back, each
// width x height luma bytes followed by height / 2 rows of width interleaved chroma bytes.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "frame_source.h"

namespace plovix_replay {

class RawReader : public FrameSource {
 public:
  // Takes ownership of file, also on failure (closing it unless it is stdin). When seekable, a file
  // whose size is not a whole number of frames is refused before anything is read.
  static std::unique_ptr<RawReader> Open(std::FILE* file, bool seekable, int width, int height,
                                         ChromaOrder order, FrameRate rate, std::string* error);

  ~RawReader() override;
  int Width() const override { return width_; }
  int Height() const override { return height_; }
  FrameRate Rate() const override { return rate_; }
  long KnownFrameCount() const override { return frameCount_; }
  ReadStatus Read(Picture* p, std::string* error) override;

 private:
  RawReader(std::FILE* file, int width, int height, ChromaOrder order, FrameRate rate)
      : file_(file), width_(width), height_(height), order_(order), rate_(rate) {}

  std::FILE* file_;
  int width_;
  int height_;
  ChromaOrder order_;
  FrameRate rate_;
  long frameCount_ = -1;
  long framesRead_ = 0;
  std::vector<uint8_t> buffer_;
};

}  // namespace plovix_replay
