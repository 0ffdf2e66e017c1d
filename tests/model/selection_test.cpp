#include "model/selection.h"

#include <cstdlib>
#include <cstring>
#include <memory>

#include "model/histogram.h"
#include "platform/memory.h"
#include "support/test_support.h"

namespace {

using plovix_test::Edges;
using V = std::vector<int>;
using Selection = plovix_test::TrackerTest;

// A 480 x 270 working image in one buffer, luma then chroma: a textured background and uniform
// objects of the colour in bins [25][7][12].
struct Scene {
  plovix_test::Frame f = plovix_test::MakeTexturedFrame(480, 270, 7);
  std::unique_ptr<uint8_t, decltype(&std::free)> buf{AllocZeroedImage(480 * 270 * 3 / 2, 480), &std::free};
  explicit Scene(const std::vector<OT_RECT>& objects) {
    for (const OT_RECT& o : objects) plovix_test::PaintRect(&f, o.left, o.top, o.right, o.bottom, 200, 200, 60);
    std::memcpy(buf.get(), f.y.data(), f.y.size());
    std::memcpy(buf.get() + f.y.size(), f.uv.data(), f.uv.size());
  }
  int Select(int x, int y) {
    return OTK_ObjTrackBgnSegment(buf.get(), buf.get() + f.y.size(), f.width, f.height, f.width, x, y);
  }
  // Both templates hold the luma of src, rows packed.
  void ExpectTemplatesAre(OT_RECT src) {
    const int tw = src.right - src.left;
    std::vector<uint8_t> want;
    for (int r = src.top; r < src.bottom; ++r) {
      want.insert(want.end(), &f.y[r * f.width + src.left], &f.y[r * f.width + src.right]);
    }
    EXPECT_EQ(std::vector<uint8_t>(pObj_Seg_window, pObj_Seg_window + want.size()), want);
    EXPECT_EQ(std::vector<uint8_t>(pObj_window, pObj_window + want.size()), want);
    EXPECT_EQ(V({obj_W, obj_sW}), V({tw, tw}));
  }
};

TEST_F(Selection, TouchOnObjectBuildsModelAndTemplatesAndResetsState) {
  Scene img({{200, 100, 240, 140}});
  Valid_flg = true;
  Valid_cnt = NCC_cnt = g_nRectIndex = g_nRectStack = g_nMovementStack = g_nDirMCount = g_nDirSCount = 2;
  gMst.nState = gMst.nLostCount = gMst.nInitDensity = gMst.nWeightThr = 1;
  gMst.rcObject = {1, 2, 3, 4};

  ASSERT_EQ(img.Select(220, 120), 1);
  EXPECT_EQ(Edges(gMst.rcTrack), (Edges({196, 96, 244, 144})));
  EXPECT_EQ(V({gMst.nObjW, gMst.nWinW, gMst.nObjH, gMst.nWinH, obj_H, obj_sH}), V(6, 48));
  EXPECT_TRUE(gMst.bFirstFrame && !Valid_flg);
  EXPECT_EQ(V({gMst.nState, gMst.nLostCount, gMst.nInitDensity, gMst.nWeightThr, Valid_cnt, NCC_cnt, g_nRectIndex,
               g_nRectStack, g_nMovementStack, g_nDirMCount, g_nDirSCount}),
            V({0, 0, 0, 1, 0, 0, -1, -1, 0, 0, 0}));
  EXPECT_EQ(Edges(gMst.rcObject), (Edges({1, 2, 3, 4})));
  // Only the object is masked, and no other pixel of the frame has its colour.
  EXPECT_EQ(m_SceneModelHistogram[25][7][12], 1600);
  for (int i = 0; i < kHistBins; ++i) ASSERT_EQ((&gMst.histModel[0][0][0])[i], i == (25 * 32 + 7) * 16 + 12 ? 255 : 0);
  img.ExpectTemplatesAre(gMst.rcTrack);
}

TEST_F(Selection, RejectsOnlyObjectsTooLargeInBothDimensions) {
  gMst.rcTrack = {5, 6, 7, 8};
  EXPECT_EQ(Scene({{10, 10, 400, 250}}).Select(200, 125), 0);
  EXPECT_EQ(m_nOT, 0);
  EXPECT_EQ(Edges(gMst.rcTrack), (Edges({5, 6, 7, 8})));
  // Wide only: accepted, then bounded about the touch rather than about the segment.
  EXPECT_EQ(Scene({{10, 100, 400, 150}}).Select(200, 125), 1);
  EXPECT_EQ(Edges(gMst.rcTrack), (Edges({150, 96, 250, 154})));
}

TEST_F(Selection, RectStickingOutOfTheFrameKeepsItsSizeAndCropsInside) {
  Scene img({{0, 0, 12, 12}});
  ASSERT_EQ(img.Select(3, 3), 1);
  // The segment (0, 0, 15, 15) is too small: 20 pixels about the touch, grown to even edges.
  EXPECT_EQ(Edges(gMst.rcTrack), (Edges({-8, -8, 14, 14})));
  img.ExpectTemplatesAre(OT_RECT{0, 0, 22, 22});
}

TEST_F(Selection, SecondTouchWhileTracking) {
  Scene img({{200, 100, 240, 140}, {100, 50, 130, 80}});
  ASSERT_EQ(img.Select(220, 120), 1);
  uint8_t* const firstTemplate = pObj_window;
  gMst.nState = Valid_cnt = 1;
  EXPECT_EQ(img.Select(-100, -100), 0);  // nothing segmented: the tracked object stays as it was
  EXPECT_EQ(Edges(gMst.rcTrack), (Edges({196, 96, 244, 144})));
  EXPECT_EQ(V({gMst.nState, Valid_cnt}), V({1, 1}));
  EXPECT_EQ(pObj_window, firstTemplate);

  EXPECT_EQ(img.Select(115, 65), 1);
  EXPECT_EQ(Edges(gMst.rcTrack), (Edges({96, 46, 134, 84})));
  EXPECT_EQ(V({gMst.nState, Valid_cnt}), V({0, 0}));
  img.ExpectTemplatesAre(gMst.rcTrack);
}

}  // namespace
