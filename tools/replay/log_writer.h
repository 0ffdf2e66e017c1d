// engine.log: every engine message as "FRAME PRIORITY TEXT" (priority 4 info, 6 error). Messages of
// a re-initialisation carry the frame before which it happened; those of the final deinit carry
// the frame count.
#pragma once

#include <cstdio>
#include <string>

#include "session.h"

namespace plovix_replay {

std::string FormatLogLine(long frame, const EngineMessage& m);

class LogWriter : public FrameObserver {
 public:
  explicit LogWriter(std::FILE* out) : out_(out) {}
  bool OnFrame(const FrameResult& result, const Picture& fed, std::string* error) override;
  bool OnFinish(long frames, const std::vector<EngineMessage>& messages,
                std::string* error) override;

 private:
  std::FILE* out_;
};

}  // namespace plovix_replay
