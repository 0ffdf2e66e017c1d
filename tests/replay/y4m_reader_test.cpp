#include "y4m_reader.h"

#include "replay_test_util.h"

namespace plovix_replay {
namespace {

using replay_test::MakeY4m;
using replay_test::StreamOf;

TEST(Y4mHeader, ParsesWhatFfmpegWritesAndRejectsWhatTheReaderCannotRead) {
  // Each header with what it parses to, WxH@RATE, or its error.
  const std::pair<const char*, const char*> cases[] = {
      {" W1920 H1080 F30000:1001 Ip A1:1 C420jpeg XYSCSS=420JPEG", "1920x1080@30000/1001"},
      {" W4 H2", "4x2@30/1"},
      {" W5 H3 F25:1 C420mpeg2", "5x3@25/1"},
      {" W4  H2 C420paldv", "4x2@30/1"},
      {" H2 F30:1", "bad Y4M header: missing width or height"},
      {" W4x H2", "bad Y4M header: invalid width '4x'"},
      {" W4 H-2", "bad Y4M header: invalid height '-2'"},
      {" W4 H2 F30:0", "bad Y4M header: invalid frame rate '30:0'"},
      {" W4 H2 C420p10",
       "unsupported Y4M colour space '420p10' (need 8-bit 4:2:0: convert with -pix_fmt yuv420p)"},
  };
  for (const auto& c : cases) {
    Y4mHeader h;
    std::string got;
    if (ParseY4mHeader(c.first, &h, &got)) {
      got = std::to_string(h.width) + "x" + std::to_string(h.height) + "@" +
            std::to_string(h.rate.num) + "/" + std::to_string(h.rate.den);
    }
    EXPECT_EQ(got, c.second) << c.first;
  }
}

TEST(Y4mReader, RefusesFilesThatAreNotWholeY4mClips) {
  std::string clip = MakeY4m(4, 2, 3);  // frames are 6 + 8 + 2 + 2 bytes
  std::string badMarker = clip;
  badMarker.replace(badMarker.rfind("FRAME"), 5, "FRAMX");
  const std::pair<std::string, const char*> cases[] = {
      {"", "empty file"},
      {"RIFF....WAVEfmt \n", "not a Y4M file (no YUV4MPEG2 signature)"},
      {"YUV4MPEG2 W4 H2", "bad Y4M header: header line is not terminated"},
      {"YUV4MPEG2 W4 H2 C422\nFRAME\n",
       "unsupported Y4M colour space '422' (need 8-bit 4:2:0: convert with -pix_fmt yuv420p)"},
      {badMarker, "frame 2: expected a FRAME marker"},
      {MakeY4m(4, 2, 1) + "FRA", "frame 1: expected a FRAME marker"},
      {clip.substr(0, clip.size() - 5), "frame 2 is truncated (7 of 12 bytes)"},
  };
  for (const auto& c : cases) {
    std::string error;
    EXPECT_EQ(Y4mReader::Open(StreamOf(c.first), true, &error), nullptr) << c.second;
    EXPECT_EQ(error, c.second);
  }
}

TEST(Y4mReader, ReadsOddSizedFramesPlaneByPlaneWhateverTheFrameMarkerCarries) {
  std::string clip = MakeY4m(5, 3, 3, " F15:2");
  clip.replace(clip.find("FRAME\n"), 6, "FRAME Ip XFOO=1\n");
  std::string error;
  auto reader = Y4mReader::Open(StreamOf(clip), true, &error);
  ASSERT_NE(reader, nullptr) << error;
  EXPECT_EQ(reader->KnownFrameCount(), 3);
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

TEST(Y4mReader, AStreamWithATruncatedLastFrameFailsWhenItIsReached) {
  const std::string clip = MakeY4m(4, 2, 3);
  std::string error;
  auto stream = Y4mReader::Open(StreamOf(clip.substr(0, clip.size() - 5)), false, &error);
  ASSERT_NE(stream, nullptr);
  EXPECT_EQ(stream->KnownFrameCount(), -1);
  Picture p;
  EXPECT_EQ(stream->Read(&p, &error), ReadStatus::kFrame);
  EXPECT_EQ(stream->Read(&p, &error), ReadStatus::kFrame);
  EXPECT_EQ(stream->Read(&p, &error), ReadStatus::kError);
  EXPECT_EQ(error, "frame 2 is truncated (7 of 12 bytes)");
}

}  // namespace
}  // namespace plovix_replay
