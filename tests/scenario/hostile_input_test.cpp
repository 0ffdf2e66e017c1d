// Frames, touches, zoom ratios, sensor types and formats a careless or hostile host may send: the
// engine answers each with 0 or -1 and a record whose states and boxes stay meaningful.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "engine/plovix_engine.h"
#include "plovixengine.h"
#include "support/test_support.h"

namespace {

using plovix_test::LogCapture;

constexpr int kNotTracking = 1, kTracking = 2;
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInf = std::numeric_limits<float>::infinity();

// Host planes at exactly the size the engine reads (never null, also for 0 bytes): a grey,
// chroma-neutral frame with a saturated square of a third of the smaller side at (cx, cy).
struct Planes {
  Planes(int w, int h, int cx, int cy) : y(new uint8_t[Bytes(w, h)]), uv(new uint8_t[Bytes(w, h / 2)]) {
    std::memset(y.get(), 100, Bytes(w, h));
    for (size_t i = 0; i < Bytes(w, h / 2); ++i) uv[i] = 128;
    const int half = std::max(1, std::min(w, h) / 6);
    for (int r = std::max(cy - half, 0); r < std::min(cy + half, h); ++r) {
      for (int c = std::max(cx - half, 0); c < std::min(cx + half, w); ++c) {
        y[static_cast<size_t>(r) * w + c] = 200;
        const size_t pair = static_cast<size_t>(r / 2) * w + (c & ~1);
        if (r / 2 < h / 2 && pair + 1 < Bytes(w, h / 2)) {
          uv[pair] = 60;
          uv[pair + 1] = 190;
        }
      }
    }
  }
  static size_t Bytes(int w, int rows) { return w > 0 && rows > 0 ? static_cast<size_t>(w) * rows : 0; }
  std::unique_ptr<uint8_t[]> y, uv;
};

// One handle and one reused record. Every frame is checked against what any frame must satisfy.
class Host {
 public:
  Host() : handle_(create_plovix_handle()) {
    plovix_test::ResetTrackerGlobals();
    init_plovix(handle_);
    std::memset(&rec, 0, sizeof rec);
    rec.nFormat = 2;
    rec.nSensorType = -1;
    rec.fZoomRatio = 1.0f;
    rec.nTrackState = rec.nPredictState = kNotTracking;
  }
  ~Host() {
    deinit_plovix(handle_);
    destroy_plovix_handle(handle_);
  }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  void Touch(int x, int y) {
    rec.bTrackRequest = 1;
    rec.nRequestX = x;
    rec.nRequestY = y;
  }
  // A frame with the square at (cx, cy); by default in the middle.
  int Frame(int w, int h, int cx = -1, int cy = -1) {
    Planes p(w, h, cx < 0 ? w / 2 : cx, cy < 0 ? h / 2 : cy);
    rec.pY = p.y.get();
    rec.pUV = p.uv.get();
    rec.nWidth = w;
    rec.nHeight = h;
    if (!keepStride_) rec.nStride = w;
    const int result = process_plovix(handle_, &rec);
    ExpectSane(result);
    rec.pY = rec.pUV = nullptr;
    return result;
  }
  void FixStride(int stride) {
    rec.nStride = stride;
    keepStride_ = true;
  }
  std::vector<int> Boxes() const {
    return {rec.nTrackState, rec.nLeft, rec.nRight, rec.nTop, rec.nBottom,
            rec.nPredictLeft, rec.nPredictRight, rec.nPredictTop, rec.nPredictBottom};
  }
  void* Handle() const { return handle_; }
  int boxSide() const { return static_cast<const PlovixEngine*>(handle_)->boxRealsize; }

  PlovixStruct rec;
  LogCapture log;

 private:
  void ExpectSane(int result) const {
    SCOPED_TRACE(std::to_string(rec.nWidth) + "x" + std::to_string(rec.nHeight));
    ASSERT_TRUE(result == 0 || result == -1) << result;
    EXPECT_TRUE(rec.nTrackState >= 1 && rec.nTrackState <= 3) << rec.nTrackState;
    EXPECT_EQ(rec.nPredictState, rec.nTrackState);
    EXPECT_EQ(rec.bTrackRequest, 0);
    // -1 for an accepted format only when the box side is below 2 pixels.
    if (result == -1) {
      EXPECT_LT(boxSide(), 2);
    }
    if (result != 0 || rec.nTrackState == kNotTracking || rec.nWidth <= boxSide()) return;
    for (int v : Boxes()) EXPECT_TRUE(v >= -1000 && v <= 1000) << v;
  }

  void* handle_;
  bool keepStride_ = false;
};

struct SizeCase {
  int w, h;
  int touchResult;  // the touch frame's return value
  int touchState;
};

// Boxes below 2 pixels (heights up to 10) fail once an object is selected, leaving the states as
// they were; a segment wider and higher than 70 % of the frame (the background, on frames whose
// object is tiny) is refused.
TEST(HostileInput, TinyAndOddFramesKeepTheRecordSane) {
  const SizeCase cases[] = {{1, 1, 0, kNotTracking},    {2, 2, 0, kNotTracking},   {3, 3, 0, kNotTracking},
                            {42, 42, 0, kTracking},     {43, 41, 0, kTracking},    {41, 43, 0, kTracking},
                            {63, 47, 0, kTracking},     {64, 10, -1, kNotTracking}, {10, 64, 0, kNotTracking},
                            {1, 480, 0, kNotTracking},  {480, 1, -1, kNotTracking}, {11, 11, 0, kNotTracking},
                            {15, 17, 0, kTracking}};
  for (const SizeCase& c : cases) {
    SCOPED_TRACE(std::to_string(c.w) + "x" + std::to_string(c.h));
    Host host;
    host.Touch(0, 0);
    EXPECT_EQ(host.Frame(c.w, c.h), c.touchResult);
    EXPECT_EQ(host.rec.nTrackState, c.touchState);
    for (int i = 1; i <= 6; ++i) host.Frame(c.w, c.h, c.w / 2 + i, c.h / 2);
  }
}

struct TouchCase {
  int x, y;        // focus units
  int px, py;      // working pixel the request converts to, 64 x 48 frame
  int state;
};

// The request conversion multiplies in wrapping 32-bit arithmetic: INT_MIN and 2^30 land in the
// middle of the frame, INT_MAX one pixel before it.
TEST(HostileInput, ExtremeTouchesWrapInto32Bits) {
  const TouchCase cases[] = {
      {INT_MIN, INT_MIN, 32, 24, kTracking},      {INT_MAX, INT_MAX, 31, 23, kTracking},
      {1 << 30, 1 << 30, 32, 24, kTracking},      {1001, 1001, 64, 48, kNotTracking},
      {-1001, -1001, 0, 0, kNotTracking},         {100000, -100000, 3232, -2376, kNotTracking},
      {INT_MIN + 1, INT_MAX - 1, 32, 23, kTracking}};
  for (const TouchCase& c : cases) {
    SCOPED_TRACE(std::to_string(c.x) + ", " + std::to_string(c.y));
    Host host;
    host.Touch(c.x, c.y);
    host.Frame(64, 48);
    const std::string pos = std::to_string(c.px) + " " + std::to_string(c.py);
    EXPECT_EQ(host.log.Count("PlovixPlugin tracking request: pos " + pos), 1);
    EXPECT_EQ(host.rec.nTrackState, c.state);
    host.Frame(64, 48, 33, 24);
  }
}

std::vector<std::vector<int>> TrackWithZooms(const std::vector<float>& zooms) {
  Host host;
  host.Touch(0, 0);
  std::vector<std::vector<int>> boxes;
  for (size_t i = 0; i < zooms.size(); ++i) {
    host.rec.fZoomRatio = zooms[i];
    host.Frame(96, 72, 48 + 2 * static_cast<int>(i), 36);
    boxes.push_back(host.Boxes());
  }
  return boxes;
}

// A ratio outside 1..10 never rescales, and the valid ratio after it is not compared with it.
TEST(HostileInput, ZoomRatiosOutsideOneToTenAreIgnored) {
  const std::vector<float> hostile = {1.0f, 0.0f,    kNaN,    kInf, -kInf, 11.0f, -1.0f,
                                      10.0001f, 0.9999f, 1.0f, kNaN, 2.0f, 2.0f};
  EXPECT_EQ(TrackWithZooms(hostile), TrackWithZooms(std::vector<float>(hostile.size(), 1.0f)));
}

// A zoom step 1 -> 10 and back, then frames smaller than the tracked rectangle.
TEST(HostileInput, ZoomStepAndShrinkingFramesStaySane) {
  for (int cx : {48, 10, 90}) {
    Host host;
    host.Touch(0, 0);
    host.Frame(96, 72, cx, 36);
    for (float zoom : {10.0f, 10.0f, 1.0f, 10.0f}) {
      host.rec.fZoomRatio = zoom;
      host.Frame(96, 72, cx, 36);
    }
    for (int side : {42, 20, 11, 3, 43}) host.Frame(side, side);
  }
}

TEST(HostileInput, SensorTypesAcrossSizeChangesStaySane) {
  const int sensors[] = {-1, 0, 1, 2, INT_MIN, INT_MAX};
  const int sizes[][2] = {{320, 240}, {42, 42}, {640, 480}, {1, 11}, {160, 120}, {810, 600}, {2, 2}, {64, 48}};
  for (int sensor : sensors) {
    Host host;
    host.rec.nSensorType = sensor;
    host.Touch(0, 0);
    for (const auto& s : sizes) {
      host.Frame(s[0], s[1]);
      host.Frame(s[0], s[1]);
    }
  }
}

// The announced stride is only checked; rows are always nWidth bytes apart.
TEST(HostileInput, StrideNeverChangesTheResults) {
  std::vector<std::vector<int>> reference;
  for (int stride : {64, 0, -1, 63, INT_MIN, INT_MAX}) {
    Host host;
    host.FixStride(stride);
    host.Touch(0, 0);
    std::vector<std::vector<int>> boxes;
    for (int i = 0; i < 5; ++i) {
      host.Frame(64, 48, 32 + i, 24);
      boxes.push_back(host.Boxes());
    }
    if (reference.empty()) reference = boxes;
    EXPECT_EQ(boxes, reference) << stride;
  }
}

}  // namespace
