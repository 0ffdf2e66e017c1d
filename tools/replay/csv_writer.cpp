#include "csv_writer.h"

namespace plovix_replay {
namespace {

struct Column {
  const char* name;
  int32_t PlovixStruct::*field;
};

// The engine-written fields, in record order.
constexpr Column kResultColumns[] = {
    {"nTrackState", &PlovixStruct::nTrackState},
    {"nLeft", &PlovixStruct::nLeft},
    {"nRight", &PlovixStruct::nRight},
    {"nTop", &PlovixStruct::nTop},
    {"nBottom", &PlovixStruct::nBottom},
    {"nWeight", &PlovixStruct::nWeight},
    {"nPredictState", &PlovixStruct::nPredictState},
    {"nPredictLeft", &PlovixStruct::nPredictLeft},
    {"nPredictRight", &PlovixStruct::nPredictRight},
    {"nPredictTop", &PlovixStruct::nPredictTop},
    {"nPredictBottom", &PlovixStruct::nPredictBottom},
    {"nPredictWeight", &PlovixStruct::nPredictWeight},
    {"nOffsetX", &PlovixStruct::nOffsetX},
    {"nOffsetY", &PlovixStruct::nOffsetY},
    {"nVelocityX", &PlovixStruct::nVelocityX},
    {"nVelocityY", &PlovixStruct::nVelocityY},
};

}  // namespace

std::string CsvHeader() {
  std::string line = "frame,ret";
  for (const Column& c : kResultColumns) line += std::string(",") + c.name;
  return line + "\n";
}

std::string CsvRow(const FrameResult& r) {
  std::string line = std::to_string(r.index) + "," + std::to_string(r.ret);
  for (const Column& c : kResultColumns) line += "," + std::to_string(r.record.*c.field);
  return line + "\n";
}

CsvWriter::CsvWriter(std::FILE* out) : out_(out) { std::fputs(CsvHeader().c_str(), out_); }

bool CsvWriter::OnFrame(const FrameResult& result, const Picture& /*fed*/, std::string* /*error*/) {
  std::fputs(CsvRow(result).c_str(), out_);
  return true;
}

}  // namespace plovix_replay
