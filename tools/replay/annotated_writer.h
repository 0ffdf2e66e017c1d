// annotated.y4m: the frames as fed, with the boxes and the state drawn on them. Y4M has one size
// per file, so frames after a size change are scaled to the first frame's size (divided by the
// shrink factor, which keeps long full-HD runs to a manageable file).
#pragma once

#include <cstdio>
#include <string>

#include "session.h"

namespace plovix_replay {

void WriteY4mHeader(std::FILE* out, int width, int height, FrameRate rate);
void WriteY4mFrame(std::FILE* out, const Picture& p);

class AnnotatedWriter : public FrameObserver {
 public:
  AnnotatedWriter(std::FILE* out, FrameRate rate, int shrink);
  bool OnFrame(const FrameResult& result, const Picture& fed, std::string* error) override;

 private:
  std::FILE* out_;
  FrameRate rate_;
  int shrink_;
  int width_ = 0;
  int height_ = 0;
  Picture annotated_;
  Picture scaled_;
};

}  // namespace plovix_replay
