#include "csv_writer.h"

#include "gtest/gtest.h"
#include "text_util.h"

namespace plovix_replay {
namespace {

TEST(CsvWriter, EveryResultFieldLandsUnderItsOwnColumn) {
#define FIELD(name) std::make_pair(#name, &PlovixStruct::name)
  const std::pair<const char*, int32_t PlovixStruct::*> fields[] = {
      FIELD(nTrackState),   FIELD(nLeft),          FIELD(nRight),        FIELD(nTop),
      FIELD(nBottom),       FIELD(nWeight),        FIELD(nPredictState), FIELD(nPredictLeft),
      FIELD(nPredictRight), FIELD(nPredictTop),    FIELD(nPredictBottom), FIELD(nPredictWeight),
      FIELD(nOffsetX),      FIELD(nOffsetY),       FIELD(nVelocityX),    FIELD(nVelocityY),
  };
#undef FIELD
  // A distinct value per field (negative for odd ones), so a swapped or missing column shows.
  FrameResult r;
  r.index = 42;
  r.ret = -1;
  r.record.nRequestX = 999;  // host fields are not results
  for (size_t i = 0; i < std::size(fields); ++i) {
    r.record.*fields[i].second = static_cast<int32_t>(i % 2 ? -(101 + i) : 101 + i);
  }
  const std::vector<std::string> names = Split(CsvHeader().substr(0, CsvHeader().size() - 1), ',');
  const std::string row = CsvRow(r);
  ASSERT_EQ(row.back(), '\n');
  const std::vector<std::string> values = Split(row.substr(0, row.size() - 1), ',');
  ASSERT_EQ(names.size(), 2 + std::size(fields));
  ASSERT_EQ(values.size(), names.size());
  EXPECT_EQ(names[0] + "=" + values[0], "frame=42");
  EXPECT_EQ(names[1] + "=" + values[1], "ret=-1");
  for (size_t i = 0; i < std::size(fields); ++i) {
    EXPECT_EQ(names[2 + i], fields[i].first);
    EXPECT_EQ(values[2 + i], std::to_string(r.record.*fields[i].second)) << names[2 + i];
  }
}

}  // namespace
}  // namespace plovix_replay
