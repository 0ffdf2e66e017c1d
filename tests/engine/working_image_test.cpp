#include "engine/working_image.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "engine/plovix_engine.h"
#include "support/test_support.h"

using plovix_test::Frame;
using plovix_test::LogCapture;

TEST(WorkingImage, RateSizeAndFactorsFollowTheFrameSize) {
  struct Case {
    int width, height;
    const char* rate;
    const char* factors;
  };
  const Case cases[] = {
      {1920, 1080, "4 1920x1080x -> 480x270x", "MaxSize100 MinSize20 MinHalf10 SearchOffset5 boxRealsize200"},
      {1280, 720, "4 1280x720x -> 320x180x", "MaxSize66 MinSize14 MinHalf8 SearchOffset3 boxRealsize133"},
      {800, 600, "2 800x600x -> 400x300x", "MaxSize112 MinSize22 MinHalf12 SearchOffset5 boxRealsize111"},
      {810, 600, "2 810x600x -> 405x300x", "MaxSize112 MinSize22 MinHalf12 SearchOffset5 boxRealsize111"},
      {1200, 600, "3 1200x600x -> 400x200x", "MaxSize74 MinSize14 MinHalf8 SearchOffset3 boxRealsize111"},
      {640, 480, "1 640x480x -> 640x480x", "MaxSize178 MinSize36 MinHalf18 SearchOffset8 boxRealsize88"},
      {1280, 721, "1 1280x721x -> 1280x721x", "MaxSize268 MinSize54 MinHalf28 SearchOffset13 boxRealsize133"},
  };
  for (const Case& c : cases) {
    Frame f = plovix_test::MakeUniformFrame(c.width, c.height, 100, 128, 128);
    PlovixStruct rec = plovix_test::MakeRecord(&f, 3);
    LogCapture log;
    void* engine = create_plovix_handle();
    init_plovix(engine);
    log.Clear();
    EXPECT_EQ(0, process_plovix(engine, &rec));
    ASSERT_GE(log.lines().size(), 2u);
    EXPECT_EQ(std::string("PlovixPlugin resize Rate ") + c.rate + " format 3", log.lines()[0].text);
    EXPECT_EQ(std::string("PlovixPlugin T.Factor Result: ") + c.factors, log.lines()[1].text);
    destroy_plovix_handle(engine);
  }
}

TEST(WorkingImage, SamplesCellCornersAndPacksOddWidthChromaOneByteShort) {
  // One contiguous 10x8 frame to 5x4: rows 0, 2, 4, 6, even columns; chroma rows 4 bytes apart.
  std::vector<uint8_t> src(10 * 8 * 3 / 2);
  for (size_t i = 0; i < src.size(); ++i) src[i] = static_cast<uint8_t>(i);
  std::vector<uint8_t> dst(30, 0xEE);
  resizeNV21(src.data(), 10, 8, dst.data(), 5, 4);
  const std::vector<uint8_t> want = {0,  2,  4,  6,  8,  20, 22,  24,  26,  28,  40,  42,  44,   46,   48,
                                     60, 62, 64, 66, 68, 80, 81, 84, 85, 100, 101, 104, 105, 0xEE, 0xEE};
  EXPECT_EQ(want, dst);
}

TEST(WorkingImage, ProcessDecimatesBothPlanesOfTheRecord) {
  for (const auto& size : {std::pair<int, int>{1920, 1080}, {810, 600}}) {
    Frame f = plovix_test::MakeUniformFrame(size.first, size.second, 0, 0, 0);
    for (size_t i = 0; i < f.y.size(); ++i) f.y[i] = static_cast<uint8_t>(i % 251);
    for (size_t i = 0; i < f.uv.size(); ++i) f.uv[i] = static_cast<uint8_t>((i * 7 + 3) % 251);
    PlovixStruct rec = plovix_test::MakeRecord(&f, 2);
    LogCapture log;
    void* handle = create_plovix_handle();
    init_plovix(handle);
    process_plovix(handle, &rec);

    const PlovixEngine* engine = static_cast<PlovixEngine*>(handle);
    const int w = engine->m_nWorkWidth, h = engine->m_nWorkHeight;
    const size_t bytes = static_cast<size_t>(w) * h + static_cast<size_t>(h / 2) * 2 * (w / 2);
    std::vector<uint8_t> want(bytes);
    resizeNV21_UV(f.y.data(), f.uv.data(), size.first, size.second, want.data(), w, h);
    ASSERT_NE(nullptr, engine->m_pWorkBuf);
    EXPECT_EQ(0, std::memcmp(want.data(), engine->m_pWorkBuf, bytes)) << size.first;
    destroy_plovix_handle(handle);
  }
}
