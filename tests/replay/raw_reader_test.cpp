#include "raw_reader.h"

#include "replay_test_util.h"

namespace plovix_replay {
namespace {

using replay_test::StreamOf;

// One 4 x 2 semi-planar frame: luma 0..7, then one chroma row of pairs (10, 20), (11, 21).
std::string RawFrame() {
  return std::string("\x00\x01\x02\x03\x04\x05\x06\x07", 8) + "\x0a\x14\x0b\x15";
}

TEST(RawReader, SplitsChromaPairsByTheDumpsLayout) {
  struct Case {
    ChromaOrder order;
    std::vector<uint8_t> u, v;
  };
  const Case cases[] = {
      {ChromaOrder::kVU, {20, 21}, {10, 11}},  // NV21: V first
      {ChromaOrder::kUV, {10, 11}, {20, 21}},  // NV12: U first
  };
  for (const Case& c : cases) {
    std::string error;
    auto reader =
        RawReader::Open(StreamOf(RawFrame() + RawFrame()), true, 4, 2, c.order, {}, &error);
    ASSERT_NE(reader, nullptr) << error;
    EXPECT_EQ(reader->KnownFrameCount(), 2);
    Picture p;
    ASSERT_EQ(reader->Read(&p, &error), ReadStatus::kFrame);
    EXPECT_EQ(p.y, (std::vector<uint8_t>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(p.u, c.u);
    EXPECT_EQ(p.v, c.v);
    EXPECT_EQ(reader->Read(&p, &error), ReadStatus::kFrame);
    EXPECT_EQ(reader->Read(&p, &error), ReadStatus::kEnd);
  }
}

TEST(RawReader, LeftoverBytesAreRefusedUpFrontInFilesAndWhenReachedInStreams) {
  std::string error;
  EXPECT_EQ(RawReader::Open(StreamOf(RawFrame() + "xyz"), true, 4, 2, ChromaOrder::kVU, {}, &error),
            nullptr);
  EXPECT_EQ(error,
            "size 15 bytes is not a whole number of 4x2 frames of 12 bytes "
            "(3 bytes left over after 1 frames)");
  auto stream =
      RawReader::Open(StreamOf(RawFrame() + "xyz"), false, 4, 2, ChromaOrder::kVU, {}, &error);
  ASSERT_NE(stream, nullptr);
  Picture p;
  EXPECT_EQ(stream->Read(&p, &error), ReadStatus::kFrame);
  EXPECT_EQ(stream->Read(&p, &error), ReadStatus::kError);
  EXPECT_EQ(error, "frame 1 is truncated (3 of 12 bytes)");
}

}  // namespace
}  // namespace plovix_replay
