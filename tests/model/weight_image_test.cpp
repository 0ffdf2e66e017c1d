#include "model/weight_image.h"

#include "model/back_projection.h"
#include "support/test_support.h"

namespace {

using plovix_test::Edges;

uint32_t Next(uint32_t* s) {
  *s = *s * 1664525u + 1013904223u;
  return *s >> 8;
}

// A random working image and model, the weight image projected eagerly and cleared elsewhere, and
// one projected on demand over a buffer of leftovers.
struct Scene {
  Scene(int width, int height, OT_RECT blocks) : w(width), h(height), projected(blocks) {
    uint32_t s = 5;
    y.resize(static_cast<size_t>(w) * h);
    cbcr.resize(static_cast<size_t>(w) * (h / 2 + 1));
    for (auto& b : y) b = static_cast<uint8_t>(Next(&s));
    for (auto& b : cbcr) b = static_cast<uint8_t>(Next(&s));
    for (auto& plane : hist) {
      for (auto& row : plane) {
        for (auto& bin : row) bin = static_cast<int>(Next(&s) % 256);
      }
    }
    eager.assign(static_cast<size_t>(w) * h, 0);
    if (!IsEmpty(blocks)) {
      BackProjectBlocks(hist, y.data(), cbcr.data(), w, w, eager.data(), blocks.left, blocks.top, blocks.right,
                        blocks.bottom);
    }
    lazy.assign(eager.size(), 0x5A);
  }
  static bool IsEmpty(const OT_RECT& r) { return r.left >= r.right || r.top >= r.bottom; }
  WeightProjection Projection() {
    return WeightProjection(lazy.data(), w, h, projected, hist, y.data(), cbcr.data(), w, nullptr);
  }
  // Every byte a read of r touches, by linear index.
  void ExpectReadableAsEager(const OT_RECT& r) const {
    const int64_t size = int64_t{w} * h;
    for (int64_t row = r.top; row < r.bottom; ++row) {
      for (int64_t x = r.left; x < r.right; ++x) {
        const int64_t i = row * w + x;
        if (i < 0 || i >= size) continue;
        ASSERT_EQ(lazy[i], eager[i]) << "pixel " << x << "," << row << " of " << ::testing::PrintToString(Edges(r));
      }
    }
  }
  int w, h;
  OT_RECT projected;
  int hist[32][32][16];
  std::vector<uint8_t> y, cbcr, eager, lazy;
};

// Windows moving about, growing, sticking out of the frame on any side: whatever a read of each
// touches must already be what projecting the blocks and clearing the rest gives.
TEST(WeightProjection, EveryPixelAReadTouchesIsReadyBeforeTheRead) {
  for (auto [w, h, blocks] : {std::tuple{480, 270, OT_RECT{180, 80, 320, 210}}, {405, 300, OT_RECT{0, 0, 404, 300}},
                              {61, 45, OT_RECT{10, 4, 40, 30}}, {64, 48, OT_RECT{0, 0, 0, 0}}}) {
    SCOPED_TRACE(testing::Message() << w << "x" << h);
    Scene scene(w, h, blocks);
    WeightProjection projection = scene.Projection();
    // First, windows sticking out sideways: their reads wrap into the neighbouring rows.
    for (const OT_RECT& r : {OT_RECT{w - 10, 20, w + 10, 30}, OT_RECT{-10, 36, 10, 44}}) {
      projection.Require(r);
      scene.ExpectReadableAsEager(r);
    }
    uint32_t s = 11;
    for (int i = 0; i < 60; ++i) {
      const int cx = static_cast<int>(Next(&s) % (w + 40)) - 20;
      const int cy = static_cast<int>(Next(&s) % (h + 40)) - 20;
      const int rw = 1 + static_cast<int>(Next(&s) % (i < 50 ? 60 : 3 * w));
      const int rh = 1 + static_cast<int>(Next(&s) % (i < 50 ? 40 : 3 * h));
      const OT_RECT r{cx - rw / 2, cy - rh / 2, cx + rw - rw / 2, cy + rh - rh / 2};
      projection.Require(r);
      scene.ExpectReadableAsEager(r);
    }
  }
}

// The point of projecting on demand: a read near the object leaves the rest of the image alone.
TEST(WeightProjection, ProjectsAndClearsOnlyAroundWhatIsRead) {
  Scene scene(480, 270, OT_RECT{100, 60, 240, 200});
  WeightProjection projection = scene.Projection();
  projection.Require(OT_RECT{150, 110, 190, 150});
  EXPECT_EQ(0x5A, scene.lazy[100 * 480 + 230]);  // inside the projected blocks, not read
  EXPECT_EQ(0x5A, scene.lazy[250 * 480 + 400]);  // outside them, not read
  EXPECT_EQ(scene.eager[130 * 480 + 170], scene.lazy[130 * 480 + 170]);
}

}  // namespace
