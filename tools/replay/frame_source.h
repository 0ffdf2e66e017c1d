// Where frames come from: a Y4M file or stream, raw preview dumps, or the built-in demo clip.
#pragma once

#include <string>

#include "picture.h"

namespace plovix_replay {

struct FrameRate {
  int num = 30;
  int den = 1;
};

enum class ReadStatus { kFrame, kEnd, kError };

class FrameSource {
 public:
  virtual ~FrameSource() = default;
  virtual int Width() const = 0;
  virtual int Height() const = 0;
  virtual FrameRate Rate() const = 0;
  // Number of frames when it is known before reading (files), else -1 (streams).
  virtual long KnownFrameCount() const = 0;
  // Reads the next frame into p. On kError, *error says what is wrong, without the source name.
  virtual ReadStatus Read(Picture* p, std::string* error) = 0;
};

}  // namespace plovix_replay
