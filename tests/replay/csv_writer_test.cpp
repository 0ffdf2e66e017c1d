#include "csv_writer.h"

#include "gtest/gtest.h"
#include "text_util.h"

namespace plovix_replay {
namespace {

TEST(CsvWriter, EveryResultFieldLandsUnderItsOwnColumn) {
  FrameResult r;
  r.index = 42;
  r.ret = -1;
  // A distinct value per field, so a swapped or missing column shows.
  PlovixStruct& rec = r.record;
  rec.nTrackState = 101;
  rec.nLeft = 102;
  rec.nRight = 103;
  rec.nTop = 104;
  rec.nBottom = 105;
  rec.nWeight = 106;
  rec.nPredictState = 107;
  rec.nPredictLeft = 108;
  rec.nPredictRight = 109;
  rec.nPredictTop = 110;
  rec.nPredictBottom = 111;
  rec.nPredictWeight = 112;
  rec.nOffsetX = -113;
  rec.nOffsetY = 114;
  rec.nVelocityX = -115;
  rec.nVelocityY = 116;
  rec.nRequestX = 999;  // host fields are not results
  rec.nWidth = 998;

  const std::vector<std::string> names = Split(CsvHeader().substr(0, CsvHeader().size() - 1), ',');
  const std::string row = CsvRow(r);
  ASSERT_EQ(row.back(), '\n');
  const std::vector<std::string> values = Split(row.substr(0, row.size() - 1), ',');
  ASSERT_EQ(names.size(), values.size());
  const std::pair<const char*, int> expected[] = {
      {"frame", 42},           {"ret", -1},
      {"nTrackState", 101},    {"nLeft", 102},
      {"nRight", 103},         {"nTop", 104},
      {"nBottom", 105},        {"nWeight", 106},
      {"nPredictState", 107},  {"nPredictLeft", 108},
      {"nPredictRight", 109},  {"nPredictTop", 110},
      {"nPredictBottom", 111}, {"nPredictWeight", 112},
      {"nOffsetX", -113},      {"nOffsetY", 114},
      {"nVelocityX", -115},    {"nVelocityY", 116},
  };
  ASSERT_EQ(names.size(), std::size(expected));
  for (size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(names[i], expected[i].first);
    EXPECT_EQ(values[i], std::to_string(expected[i].second)) << names[i];
  }
}

}  // namespace
}  // namespace plovix_replay
