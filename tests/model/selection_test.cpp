#include "model/selection.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "engine/tuning.h"
#include "model/histogram.h"
#include "model/model_state.h"
#include "platform/memory.h"
#include "support/test_support.h"
#include "tracking/tracker_state.h"

namespace {

std::vector<int> V(OT_RECT r) { return {r.left, r.top, r.right, r.bottom}; }

// A working image in one buffer, luma then chroma, with uniform objects of the colour in bins [25][7][12].
struct WorkImage {
  plovix_test::Frame f;
  std::unique_ptr<uint8_t, decltype(&std::free)> buf{nullptr, &std::free};
  explicit WorkImage(plovix_test::Frame frame, std::vector<OT_RECT> objects = {}) : f(std::move(frame)) {
    for (const OT_RECT& o : objects) plovix_test::PaintRect(&f, o.left, o.top, o.right, o.bottom, 200, 200, 60);
    buf.reset(AllocZeroedImage(f.y.size() * 3 / 2, f.width));
    std::memcpy(buf.get(), f.y.data(), f.y.size());
    std::memcpy(buf.get() + f.y.size(), f.uv.data(), f.uv.size());
  }
  int Select(int x, int y) {
    return OTK_ObjTrackBgnSegment(buf.get(), buf.get() + f.y.size(), f.width, f.height, f.width, x, y);
  }
  // The templates hold the luma of src, rows packed.
  void ExpectTemplatesAre(OT_RECT src) {
    const int tw = src.right - src.left;
    for (int r = 0; r < src.bottom - src.top; ++r)
      for (int c = 0; c < tw; ++c) {
        ASSERT_EQ(pObj_Seg_window[r * tw + c], f.y[(src.top + r) * f.width + src.left + c]) << r << " " << c;
        ASSERT_EQ(pObj_window[r * tw + c], pObj_Seg_window[r * tw + c]);
      }
  }
};
WorkImage Scene(std::vector<OT_RECT> objects) { return WorkImage(plovix_test::MakeTexturedFrame(480, 270, 7), objects); }

class Selection : public ::testing::Test {
 protected:
  void SetUp() override { TearDown(); }
  void TearDown() override {
    std::free(pObj_window);
    std::free(pObj_Seg_window);
    pObj_window = pObj_Seg_window = nullptr;
    m_nOT = 0;
    gMst = CMeanShiftTracker{};
    g_FF_SEARCH_OFFSET = savedOffset_;
  }
  const int savedOffset_ = g_FF_SEARCH_OFFSET;
};

TEST_F(Selection, TouchOnObjectBuildsModelAndTemplatesAndResetsState) {
  WorkImage img = Scene({{200, 100, 240, 140}});
  Valid_flg = true;
  Valid_cnt = NCC_cnt = g_nRectIndex = g_nRectStack = g_nMovementStack = g_nDirMCount = g_nDirSCount = 2;
  gMst.nState = gMst.nLostCount = gMst.nInitDensity = gMst.nWeightThr = 1;
  gMst.rcObject = {1, 2, 3, 4};

  ASSERT_EQ(img.Select(220, 120), 1);
  EXPECT_EQ(V(gMst.rcTrack), V({196, 96, 244, 144}));
  EXPECT_EQ(std::vector<int>({gMst.nObjW, gMst.nWinW, gMst.nObjH, gMst.nWinH, obj_W, obj_sW, obj_H, obj_sH}),
            std::vector<int>(8, 48));
  EXPECT_TRUE(gMst.bFirstFrame && !Valid_flg);
  EXPECT_EQ(std::vector<int>({gMst.nState, gMst.nLostCount, gMst.nInitDensity, gMst.nWeightThr, Valid_cnt, NCC_cnt,
                              g_nRectIndex, g_nRectStack, g_nMovementStack, g_nDirMCount, g_nDirSCount}),
            std::vector<int>({0, 0, 0, 1, 0, 0, -1, -1, 0, 0, 0}));
  EXPECT_EQ(V(gMst.rcObject), V({1, 2, 3, 4}));
  // Only the object is masked, and no other pixel of the frame has its colour.
  EXPECT_EQ(m_SceneModelHistogram[25][7][12], 1600);
  for (int i = 0; i < kHistBins; ++i) ASSERT_EQ((&gMst.histModel[0][0][0])[i], i == (25 * 32 + 7) * 16 + 12 ? 255 : 0);
  img.ExpectTemplatesAre(gMst.rcTrack);
}

TEST_F(Selection, RejectsOnlyObjectsTooLargeInBothDimensions) {
  gMst.rcTrack = {5, 6, 7, 8};
  EXPECT_EQ(Scene({{10, 10, 400, 250}}).Select(200, 125), 0);
  EXPECT_EQ(m_nOT, 0);
  EXPECT_EQ(V(gMst.rcTrack), V({5, 6, 7, 8}));
  // Wide only: accepted, then bounded about the touch rather than about the segment.
  EXPECT_EQ(Scene({{10, 100, 400, 150}}).Select(200, 125), 1);
  EXPECT_EQ(V(gMst.rcTrack), V({150, 96, 250, 154}));
}

TEST_F(Selection, RectStickingOutOfTheFrameKeepsItsSizeAndCropsInside) {
  WorkImage img = Scene({{0, 0, 12, 12}});
  ASSERT_EQ(img.Select(3, 3), 1);
  // The segment (0, 0, 15, 15) is too small: 20 pixels about the touch, grown to even edges.
  EXPECT_EQ(V(gMst.rcTrack), V({-8, -8, 14, 14}));
  EXPECT_EQ(obj_W * obj_sH, 22 * 22);
  img.ExpectTemplatesAre(OT_RECT{0, 0, 22, 22});
}

TEST_F(Selection, SecondTouchWhileTracking) {
  WorkImage img = Scene({{200, 100, 240, 140}, {100, 50, 130, 80}});
  ASSERT_EQ(img.Select(220, 120), 1);
  uint8_t* const firstTemplate = pObj_window;
  gMst.nState = Valid_cnt = 1;
  EXPECT_EQ(img.Select(-100, -100), 0);  // nothing segmented: the tracked object stays as it was
  EXPECT_EQ(V(gMst.rcTrack), V({196, 96, 244, 144}));
  EXPECT_EQ(std::vector<int>({gMst.nState, Valid_cnt}), std::vector<int>({1, 1}));
  EXPECT_EQ(pObj_window, firstTemplate);

  EXPECT_EQ(img.Select(115, 65), 1);
  EXPECT_EQ(V(gMst.rcTrack), V({96, 46, 134, 84}));
  EXPECT_EQ(std::vector<int>({gMst.nState, Valid_cnt, obj_W}), std::vector<int>({0, 0, 38}));
  img.ExpectTemplatesAre(gMst.rcTrack);
}

TEST_F(Selection, WholeFrameRectBuildsNoModelButRecropsAnEarlierObject) {
  plovix_test::Frame f = plovix_test::MakeUniformFrame(20, 20, 0, 128, 128);
  for (int i = 0; i < 400; ++i) f.y[i] = static_cast<uint8_t>(i / 20 * 12 + i % 20);
  WorkImage small(f, {{8, 8, 12, 12}});
  g_FF_SEARCH_OFFSET = 0;  // one seed only, so that the background is not filled as well
  EXPECT_EQ(small.Select(10, 10), 0);  // the segment (4, 4, 16, 16) widens to exactly the frame
  EXPECT_EQ(pObj_window, nullptr);

  ASSERT_EQ(Scene({{200, 100, 240, 140}}).Select(220, 120), 1);
  EXPECT_EQ(small.Select(10, 10), 1);
  EXPECT_EQ(V(gMst.rcTrack), V({196, 96, 244, 144}));
  EXPECT_EQ(gMst.histModel[25][7][12], 255);
  // 48 x 48 from a 20 x 20 frame: flush with its bottom-right corner, top and left edges repeated.
  ASSERT_EQ(obj_W, 48);
  const uint8_t* t = pObj_window;
  EXPECT_EQ(std::vector<int>({t[0], t[10 * 48 + 30], t[30 * 48 + 40], t[47 * 48 + 47]}),
            std::vector<int>({0, 2, 2 * 12 + 12, 19 * 12 + 19}));
}

}  // namespace
