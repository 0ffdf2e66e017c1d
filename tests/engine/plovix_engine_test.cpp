#include "engine/plovix_engine.h"

#include <climits>
#include <cstdlib>

#include "support/test_support.h"

using plovix_test::Engine;
using plovix_test::Frame;
using plovix_test::LogCapture;
using plovix_test::MakeRecord;
using plovix_test::MakeUniformFrame;

TEST(PlovixEngine, AcceptsOnlyFormatsTwoThreeAndSevenAndWarnsAboutShortStrides) {
  Frame f = MakeUniformFrame(64, 48, 90, 128, 128);
  for (int format : {0, 1, 4, 6, 8, -1, INT_MIN, 2, 3, 7}) {
    const bool accepted = format == 2 || format == 3 || format == 7;
    PlovixStruct rec = MakeRecord(&f, format);
    rec.bTrackRequest = 1;
    rec.nStride = 63;
    rec.nTrackState = 9;
    Engine engine;
    LogCapture log;
    EXPECT_EQ(accepted ? 0 : -1, process_plovix(engine.get(), &rec)) << format;
    EXPECT_EQ(accepted ? 0 : 1, log.Count("PlovixPlugin currently only support nv21, nv12_venus, nv12 input"));
    EXPECT_EQ(accepted ? 1 : 0, log.Count("PlovixPlugin stride was set to 63, using nWidth as stride"));
    // A rejected frame leaves the record alone, request included.
    EXPECT_EQ(accepted ? 0 : 1, rec.bTrackRequest) << format;
    EXPECT_TRUE(accepted || rec.nTrackState == 9) << format;
  }
}

TEST(PlovixEngine, ConvertsTheTouchToWorkingPixels) {
  for (auto [width, height, x, y, flag, pos] : {
           std::tuple{1920, 1080, 0, 0, 1, "240 135"}, {1920, 1080, -1000, 1000, 1, "0 270"},
           {1280, 720, 999, 999, 1, "319 179"}, {1920, 1080, 0, 0, 0x80, "240 135"},  // any non-zero byte
           {1920, 1080, INT_MAX, INT_MIN, 1, "239 135"},                             // the product wraps
       }) {
    Frame f = MakeUniformFrame(width, height, 90, 128, 128);
    PlovixStruct rec = MakeRecord(&f);
    rec.bTrackRequest = static_cast<uint8_t>(flag);
    rec.nRequestX = x;
    rec.nRequestY = y;
    LogCapture log;
    process_plovix(Engine().get(), &rec);
    EXPECT_EQ(1, log.Count(std::string("PlovixPlugin tracking request: pos ") + pos)) << pos;
  }
}

TEST(PlovixEngine, ReportsAFailedSelection) {
  // A uniform frame is one region far larger than any object, so nothing can be selected.
  Frame f = MakeUniformFrame(64, 48, 90, 128, 128);
  PlovixStruct rec = MakeRecord(&f);
  rec.bTrackRequest = 1;
  rec.nLeft = rec.nBottom = rec.nPredictRight = rec.nPredictTop = rec.nOffsetX = 5;
  LogCapture log;
  EXPECT_EQ(0, process_plovix(Engine().get(), &rec));
  EXPECT_EQ(std::tuple(rec.nTrackState, rec.nPredictState, rec.nLeft, rec.nBottom, rec.nPredictRight, rec.nPredictTop,
                       rec.nOffsetX),
            std::tuple(1, 1, 0, 0, 0, 0, 5));
  EXPECT_EQ(1, log.Count("PlovixPlugin select object failed"));
  EXPECT_EQ(1, log.Count("PlovixPlugin non tracking mode"));
}

TEST(PlovixEngine, RefusesWhatItCannotAddressWithoutTouchingTheRecord) {
  Frame f = MakeUniformFrame(64, 48, 90, 128, 128);
  struct Case {
    int width, height;
    bool nullY, nullUV;
    const char* message;
  };
  for (const Case& c : {
           Case{-64, 48, false, false, "PlovixPlugin frame size -64x48 is not supported"},
           Case{64, -48, false, false, "PlovixPlugin frame size 64x-48 is not supported"},
           Case{65536, 32768, false, false, "PlovixPlugin frame size 65536x32768 is not supported"},
           Case{46341, 30895, false, false, "PlovixPlugin frame size 46341x30895 is not supported"},
           Case{64, 48, true, false, "PlovixPlugin process called with a null plane"},
           Case{64, 48, false, true, "PlovixPlugin process called with a null plane"},
       }) {
    PlovixStruct rec = MakeRecord(&f);
    rec.nWidth = c.width;
    rec.nHeight = c.height;
    if (c.nullY) rec.pY = nullptr;
    if (c.nullUV) rec.pUV = nullptr;
    rec.bTrackRequest = 1;
    rec.nTrackState = 9;
    Engine engine;
    LogCapture log;
    EXPECT_EQ(-1, process_plovix(engine.get(), &rec)) << c.message;
    ASSERT_EQ(1u, log.lines().size()) << c.message;
    EXPECT_EQ(6, log.lines()[0].priority);
    EXPECT_EQ(c.message, log.lines()[0].text);
    EXPECT_EQ(std::tuple(1, 9), std::tuple(int{rec.bTrackRequest}, rec.nTrackState)) << c.message;
  }
}

TEST(PlovixEngine, NullHandlesAndRecordsGetADefinedAnswer) {
  Frame f = MakeUniformFrame(64, 48, 90, 128, 128);
  PlovixStruct rec = MakeRecord(&f);
  LogCapture log;
  EXPECT_EQ(0, init_plovix(nullptr));
  EXPECT_EQ(0, deinit_plovix(nullptr));
  EXPECT_EQ(-1, process_plovix(nullptr, &rec));
  EXPECT_EQ(-1, process_plovix(Engine().get(), nullptr));
  destroy_plovix_handle(nullptr);
  EXPECT_EQ(1, log.Count("PlovixPlugin init called with a null handle"));
  EXPECT_EQ(1, log.Count("PlovixPlugin deinit called with a null handle"));
  EXPECT_EQ(1, log.Count("PlovixPlugin process called with a null handle"));
  EXPECT_EQ(1, log.Count("PlovixPlugin process called with a null record"));
  for (const auto& line : log.lines()) EXPECT_EQ("PlovixPlugin", line.tag);
}

TEST(PlovixEngine, LifecycleRebuildsTheWorkingImageOnlyWhenNeeded) {
  Frame small = MakeUniformFrame(1280, 720, 90, 128, 128);
  Frame large = MakeUniformFrame(1920, 1080, 90, 128, 128);
  PlovixStruct smallRec = MakeRecord(&small);
  PlovixStruct largeRec = MakeRecord(&large);
  const std::string smallRate = "PlovixPlugin resize Rate 4 1280x720x -> 320x180x format 2";
  const std::string largeRate = "PlovixPlugin resize Rate 4 1920x1080x -> 480x270x format 2";
  LogCapture log;
  void* engine = create_plovix_handle();
  EXPECT_EQ(0, process_plovix(engine, &smallRec));  // a frame before any init is processed
  EXPECT_EQ(0, init_plovix(engine));
  EXPECT_EQ(1, log.Count("PlovixPlugin init called ver v0.964_POSVNDK+NV12"));
  process_plovix(engine, &smallRec);
  EXPECT_EQ(2, log.Count(smallRate));  // init released the buffer
  EXPECT_EQ(0, init_plovix(engine));
  EXPECT_EQ(1, log.Count("PlovixPlugin init called again without deinit, so exit init process"));
  process_plovix(engine, &smallRec);
  EXPECT_EQ(2, log.Count(smallRate));
  process_plovix(engine, &largeRec);
  EXPECT_EQ(1, log.Count(largeRate));

  deinit_plovix(engine);
  pObj_window = static_cast<uint8_t*>(std::malloc(16));
  pObj_Seg_window = static_cast<uint8_t*>(std::malloc(16));
  EXPECT_EQ(0, deinit_plovix(engine));
  EXPECT_EQ(1, log.Count("PlovixPlugin deinit called without init, but continue deinitialize process"));
  EXPECT_EQ(nullptr, pObj_window);
  EXPECT_EQ(nullptr, pObj_Seg_window);
  init_plovix(engine);
  process_plovix(engine, &largeRec);
  EXPECT_EQ(2, log.Count(largeRate));
  deinit_plovix(engine);
  destroy_plovix_handle(engine);
  destroy_plovix_handle(nullptr);
}
