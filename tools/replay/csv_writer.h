// frames.csv: one row per frame with the process_plovix return code and every result field of the
// record, named as in the record, boxes in focus units.
#pragma once

#include <cstdio>
#include <string>

#include "session.h"

namespace plovix_replay {

std::string CsvHeader();
std::string CsvRow(const FrameResult& r);

class CsvWriter : public FrameObserver {
 public:
  explicit CsvWriter(std::FILE* out);
  bool OnFrame(const FrameResult& result, const Picture& fed, std::string* error) override;

 private:
  std::FILE* out_;
};

}  // namespace plovix_replay
