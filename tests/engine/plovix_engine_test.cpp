#include "engine/plovix_engine.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <memory>
#include <string>

#include "support/test_support.h"
#include "tracking/tracker_state.h"

using plovix_test::Frame;
using plovix_test::LogCapture;
using plovix_test::MakeRecord;
using plovix_test::MakeUniformFrame;

namespace {

// Deinit also releases the templates a selection keeps.
struct Teardown {
  void operator()(void* handle) const {
    deinit_plovix(handle);
    destroy_plovix_handle(handle);
  }
};
using Engine = std::unique_ptr<void, Teardown>;

Engine InitialisedEngine() {
  Engine engine(create_plovix_handle());
  init_plovix(engine.get());
  return engine;
}

}  // namespace

TEST(PlovixEngine, AcceptsOnlyFormatsTwoThreeAndSevenAndWarnsAboutShortStrides) {
  Frame f = MakeUniformFrame(64, 48, 90, 128, 128);
  for (int format : {0, 1, 4, 5, 6, 8, -1, INT_MIN, 2, 3, 7}) {
    const bool accepted = format == 2 || format == 3 || format == 7;
    PlovixStruct rec = MakeRecord(&f, format);
    rec.bTrackRequest = 1;
    rec.nStride = 63;
    rec.nTrackState = 9;
    LogCapture log;
    Engine engine = InitialisedEngine();
    log.Clear();
    EXPECT_EQ(accepted ? 0 : -1, process_plovix(engine.get(), &rec)) << format;
    EXPECT_EQ(accepted ? 0 : 1, log.Count("PlovixPlugin currently only support nv21, nv12_venus, nv12 input"));
    EXPECT_EQ(accepted ? 1 : 0, log.Count("PlovixPlugin stride was set to 63, using nWidth as stride"));
    EXPECT_EQ(accepted ? 0 : 1, rec.bTrackRequest) << format;
    if (!accepted) {
      EXPECT_EQ(9, rec.nTrackState) << format;
    }
  }
}

TEST(PlovixEngine, ConvertsTheTouchToWorkingPixels) {
  struct Case {
    int width, height, x, y;
    uint8_t flag;
    const char* pos;
  };
  const Case cases[] = {
      {1920, 1080, 0, 0, 1, "240 135"},    {1920, 1080, -1000, 1000, 1, "0 270"},
      {1280, 720, 999, 999, 1, "319 179"}, {1920, 1080, 0, 0, 0x80, "240 135"},  // any non-zero byte
      {1920, 1080, INT_MAX, INT_MIN, 1, "239 135"},                             // the product wraps
  };
  for (const Case& c : cases) {
    Frame f = MakeUniformFrame(c.width, c.height, 90, 128, 128);
    PlovixStruct rec = MakeRecord(&f);
    rec.bTrackRequest = c.flag;
    rec.nRequestX = c.x;
    rec.nRequestY = c.y;
    LogCapture log;
    process_plovix(InitialisedEngine().get(), &rec);
    EXPECT_EQ(1, log.Count(std::string("PlovixPlugin tracking request: pos ") + c.pos)) << c.pos;
  }
}

TEST(PlovixEngine, ReportsAFailedSelection) {
  // No working buffer can be made for a negative width, so the request cannot select anything.
  Frame f = MakeUniformFrame(64, 48, 90, 128, 128);
  PlovixStruct rec = MakeRecord(&f);
  rec.nWidth = -64;
  rec.bTrackRequest = 1;
  rec.nLeft = rec.nBottom = rec.nPredictRight = rec.nPredictTop = rec.nOffsetX = 5;
  LogCapture log;
  EXPECT_EQ(0, process_plovix(InitialisedEngine().get(), &rec));
  EXPECT_EQ(1, rec.nTrackState);
  EXPECT_EQ(1, rec.nPredictState);
  EXPECT_EQ(0, rec.nLeft | rec.nBottom | rec.nPredictRight | rec.nPredictTop);
  EXPECT_EQ(5, rec.nOffsetX);
  EXPECT_EQ("PlovixPlugin select object failed", log.lines().at(4).text);
  EXPECT_EQ("PlovixPlugin non tracking mode", log.lines().at(5).text);
}

TEST(PlovixEngine, LifecycleRebuildsTheWorkingImageOnlyWhenNeeded) {
  Frame small = MakeUniformFrame(1280, 720, 90, 128, 128);
  Frame large = MakeUniformFrame(1920, 1080, 90, 128, 128);
  PlovixStruct smallRec = MakeRecord(&small);
  PlovixStruct largeRec = MakeRecord(&large);
  const std::string smallRate = "PlovixPlugin resize Rate 4 1280x720x -> 320x180x format 2";
  const std::string largeRate = "PlovixPlugin resize Rate 4 1920x1080x -> 480x270x format 2";
  LogCapture log;
  Engine engine(create_plovix_handle());
  EXPECT_EQ(0, process_plovix(engine.get(), &smallRec));  // a frame before any init is processed
  EXPECT_EQ(0, init_plovix(engine.get()));
  EXPECT_EQ(1, log.Count("PlovixPlugin init called ver v0.964_POSVNDK+NV12"));
  process_plovix(engine.get(), &smallRec);
  EXPECT_EQ(2, log.Count(smallRate));  // init released the buffer
  EXPECT_EQ(0, init_plovix(engine.get()));
  EXPECT_EQ(1, log.Count("PlovixPlugin init called again without deinit, so exit init process"));
  process_plovix(engine.get(), &smallRec);
  EXPECT_EQ(2, log.Count(smallRate));
  process_plovix(engine.get(), &largeRec);
  EXPECT_EQ(1, log.Count(largeRate));

  deinit_plovix(engine.get());
  pObj_window = static_cast<uint8_t*>(std::malloc(16));
  pObj_Seg_window = static_cast<uint8_t*>(std::malloc(16));
  EXPECT_EQ(0, deinit_plovix(engine.get()));
  EXPECT_EQ(1, log.Count("PlovixPlugin deinit called without init, but continue deinitialize process"));
  EXPECT_EQ(nullptr, pObj_window);
  EXPECT_EQ(nullptr, pObj_Seg_window);
  init_plovix(engine.get());
  process_plovix(engine.get(), &largeRec);
  EXPECT_EQ(2, log.Count(largeRate));
  destroy_plovix_handle(nullptr);
}
