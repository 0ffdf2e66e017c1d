#include "y4m_reader.h"

#include "replay_test_util.h"

namespace plovix_replay {
namespace {

using replay_test::MakeY4m;
using replay_test::StreamOf;

struct HeaderCase {
  const char* line;
  bool ok;
  int width, height, num, den;
  const char* error;
};

TEST(Y4mHeader, ParsesWhatFfmpegWritesAndRejectsWhatTheReaderCannotRead) {
  const HeaderCase cases[] = {
      {" W1920 H1080 F30000:1001 Ip A1:1 C420jpeg XYSCSS=420JPEG", true, 1920, 1080, 30000, 1001,
       ""},
      {" W4 H2", true, 4, 2, 30, 1, ""},
      {" W5 H3 F25:1 C420mpeg2", true, 5, 3, 25, 1, ""},
      {" W4  H2 C420paldv", true, 4, 2, 30, 1, ""},
      {" H2 F30:1", false, 0, 0, 0, 0, "bad Y4M header: missing width or height"},
      {" W0 H2", false, 0, 0, 0, 0, "bad Y4M header: invalid width '0'"},
      {" W4x H2", false, 0, 0, 0, 0, "bad Y4M header: invalid width '4x'"},
      {" W4 H-2", false, 0, 0, 0, 0, "bad Y4M header: invalid height '-2'"},
      {" W4 H2 F30", false, 0, 0, 0, 0, "bad Y4M header: invalid frame rate '30'"},
      {" W4 H2 F30:0", false, 0, 0, 0, 0, "bad Y4M header: invalid frame rate '30:0'"},
      {" W4 H2 C444", false, 0, 0, 0, 0,
       "unsupported Y4M colour space '444' (need 8-bit 4:2:0: convert with -pix_fmt yuv420p)"},
      {" W4 H2 C420p10", false, 0, 0, 0, 0,
       "unsupported Y4M colour space '420p10' (need 8-bit 4:2:0: convert with -pix_fmt yuv420p)"},
  };
  for (const HeaderCase& c : cases) {
    SCOPED_TRACE(c.line);
    Y4mHeader h;
    std::string error;
    ASSERT_EQ(ParseY4mHeader(c.line, &h, &error), c.ok);
    if (c.ok) {
      EXPECT_EQ(h.width, c.width);
      EXPECT_EQ(h.height, c.height);
      EXPECT_EQ(h.rate.num, c.num);
      EXPECT_EQ(h.rate.den, c.den);
    } else {
      EXPECT_EQ(error, c.error);
    }
  }
}

TEST(Y4mReader, RefusesFilesThatAreNotY4m) {
  struct Case {
    std::string bytes;
    const char* error;
  };
  const Case cases[] = {
      {"", "empty file"},
      {"RIFF....WAVEfmt \n", "not a Y4M file (no YUV4MPEG2 signature)"},
      {"YUV4MPEG2 W4 H2", "bad Y4M header: header line is not terminated"},
      {"YUV4MPEG2 W4 H2 C422\nFRAME\n",
       "unsupported Y4M colour space '422' (need 8-bit 4:2:0: convert with -pix_fmt yuv420p)"},
  };
  for (const Case& c : cases) {
    std::string error;
    EXPECT_EQ(Y4mReader::Open(StreamOf(c.bytes), true, &error), nullptr);
    EXPECT_EQ(error, c.error);
  }
}

TEST(Y4mReader, ReadsOddSizedFramesPlaneByPlane) {
  std::string error;
  auto reader = Y4mReader::Open(StreamOf(MakeY4m(5, 3, 3, " F15:2")), true, &error);
  ASSERT_NE(reader, nullptr) << error;
  EXPECT_EQ(reader->KnownFrameCount(), 3);
  EXPECT_EQ(reader->Rate().num, 15);
  EXPECT_EQ(reader->Rate().den, 2);
  Picture p;
  for (int i = 0; i < 3; ++i) {
    ASSERT_EQ(reader->Read(&p, &error), ReadStatus::kFrame) << error;
    EXPECT_EQ(p.y, std::vector<uint8_t>(15, i));
    EXPECT_EQ(p.u, std::vector<uint8_t>(6, 100 + i));  // chroma 3 x 2 for 5 x 3
    EXPECT_EQ(p.v, std::vector<uint8_t>(6, 200 + i));
  }
  EXPECT_EQ(reader->Read(&p, &error), ReadStatus::kEnd);
}

TEST(Y4mReader, AcceptsFrameMarkersWithParameters) {
  std::string clip = MakeY4m(2, 2, 2);
  clip.replace(clip.find("FRAME\n"), 6, "FRAME Ip XFOO=1\n");
  std::string error;
  auto reader = Y4mReader::Open(StreamOf(clip), false, &error);
  ASSERT_NE(reader, nullptr) << error;
  Picture p;
  EXPECT_EQ(reader->Read(&p, &error), ReadStatus::kFrame);
  EXPECT_EQ(reader->Read(&p, &error), ReadStatus::kFrame);
  EXPECT_EQ(p.y[0], 1);
}

TEST(Y4mReader, TruncatedLastFrameIsFoundUpFrontInFilesAndWhenReachedInStreams) {
  const std::string clip = MakeY4m(4, 2, 3);
  const std::string cut = clip.substr(0, clip.size() - 5);  // frames are 8 + 2 + 2 = 12 bytes
  std::string error;
  EXPECT_EQ(Y4mReader::Open(StreamOf(cut), true, &error), nullptr);
  EXPECT_EQ(error, "frame 2 is truncated (7 of 12 bytes)");

  auto stream = Y4mReader::Open(StreamOf(cut), false, &error);
  ASSERT_NE(stream, nullptr);
  EXPECT_EQ(stream->KnownFrameCount(), -1);
  Picture p;
  EXPECT_EQ(stream->Read(&p, &error), ReadStatus::kFrame);
  EXPECT_EQ(stream->Read(&p, &error), ReadStatus::kFrame);
  EXPECT_EQ(stream->Read(&p, &error), ReadStatus::kError);
  EXPECT_EQ(error, "frame 2 is truncated (7 of 12 bytes)");
}

TEST(Y4mReader, ReportsAMissingFrameMarkerWithItsFrameNumber) {
  std::string clip = MakeY4m(4, 2, 2);
  clip.replace(clip.rfind("FRAME"), 5, "FRAMX");
  std::string error;
  EXPECT_EQ(Y4mReader::Open(StreamOf(clip), true, &error), nullptr);
  EXPECT_EQ(error, "frame 1: expected a FRAME marker");
  clip = MakeY4m(4, 2, 1) + "FRA";
  EXPECT_EQ(Y4mReader::Open(StreamOf(clip), true, &error), nullptr);
  EXPECT_EQ(error, "frame 1: expected a FRAME marker");
}

}  // namespace
}  // namespace plovix_replay
