#include "engine/working_image.h"

#include "support/test_support.h"

TEST(WorkingImage, RateSizeAndFactorsFollowTheFrameSize) {
  const struct {
    int width, height;
    const char* rate;
    const char* factors;
  } cases[] = {
      {1920, 1080, "4 1920x1080x -> 480x270x", "MaxSize100 MinSize20 MinHalf10 SearchOffset5 boxRealsize200"},
      {1280, 720, "4 1280x720x -> 320x180x", "MaxSize66 MinSize14 MinHalf8 SearchOffset3 boxRealsize133"},
      {800, 600, "2 800x600x -> 400x300x", "MaxSize112 MinSize22 MinHalf12 SearchOffset5 boxRealsize111"},
      {810, 600, "2 810x600x -> 405x300x", "MaxSize112 MinSize22 MinHalf12 SearchOffset5 boxRealsize111"},
      {1200, 600, "3 1200x600x -> 400x200x", "MaxSize74 MinSize14 MinHalf8 SearchOffset3 boxRealsize111"},
      {640, 480, "1 640x480x -> 640x480x", "MaxSize178 MinSize36 MinHalf18 SearchOffset8 boxRealsize88"},
      {1280, 721, "1 1280x721x -> 1280x721x", "MaxSize268 MinSize54 MinHalf28 SearchOffset13 boxRealsize133"},
  };
  for (const auto& c : cases) {
    plovix_test::Frame f = plovix_test::MakeUniformFrame(c.width, c.height, 100, 128, 128);
    PlovixStruct rec = plovix_test::MakeRecord(&f, 3);
    plovix_test::Engine engine;
    plovix_test::LogCapture log;
    EXPECT_EQ(0, process_plovix(engine.get(), &rec));
    ASSERT_GE(log.lines().size(), 2u);
    EXPECT_EQ(std::string("PlovixPlugin resize Rate ") + c.rate + " format 3", log.lines()[0].text);
    EXPECT_EQ(std::string("PlovixPlugin T.Factor Result: ") + c.factors, log.lines()[1].text);
  }
}

TEST(WorkingImage, SamplesCellCornersAndPacksOddWidthChromaOneByteShort) {
  // One contiguous 10x8 frame to 5x4: rows 0, 2, 4, 6, even columns; chroma rows 4 bytes apart.
  std::vector<uint8_t> src(10 * 8 * 3 / 2);
  for (size_t i = 0; i < src.size(); ++i) src[i] = static_cast<uint8_t>(i);
  std::vector<uint8_t> dst(30, 0xEE);
  resizeNV21(src.data(), 10, 8, dst.data(), 5, 4);
  const std::vector<uint8_t> want = {0,  2,  4,  6,  8,  20, 22, 24, 26, 28,  40,  42,  44,  46,   48,
                                     60, 62, 64, 66, 68, 80, 81, 84, 85, 100, 101, 104, 105, 0xEE, 0xEE};
  EXPECT_EQ(want, dst);
}
