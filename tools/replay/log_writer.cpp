#include "log_writer.h"

namespace plovix_replay {

std::string FormatLogLine(long frame, const EngineMessage& m) {
  std::string line = std::to_string(frame) + " " + std::to_string(m.priority) + " ";
  for (char c : m.text) {
    // One message, one line, whatever the text holds.
    if (c == '\n') {
      line += "\\n";
    } else if (c != '\r') {
      line += c;
    }
  }
  return line + "\n";
}

bool LogWriter::OnFrame(const FrameResult& result, const Picture& /*fed*/, std::string* /*error*/) {
  for (const EngineMessage& m : result.messages)
    std::fputs(FormatLogLine(result.index, m).c_str(), out_);
  return true;
}

bool LogWriter::OnFinish(long frames, const std::vector<EngineMessage>& messages,
                         std::string* /*error*/) {
  for (const EngineMessage& m : messages) std::fputs(FormatLogLine(frames, m).c_str(), out_);
  return true;
}

}  // namespace plovix_replay
