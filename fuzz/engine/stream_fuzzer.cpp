// Drives one engine handle through a stream of frames decoded from the input: frame sizes from 0x0
// to 640x480 (and a few decimated ones), refused formats, strides, touches anywhere (INT_MIN and
// INT_MAX included), zoom ratios in and out of 1..10 (NaN and infinities), sensor types, size
// changes and deinit/init, over a scene whose objects move. Checks the record after every frame.
//
// Input: a sequence of operations, each one byte followed by its arguments:
//   0x00-0xDF  a frame; bits say which settings change first: 1 size, 2 request, 4 zoom,
//              8 sensor, 16 format, 32 stride, 64 the scene holds still for this frame
//   0xE0-0xE7  init_plovix          0xE8-0xEF  deinit_plovix
//   0xF0-0xF7  a new scene (see Scene::Read)
//   0xF8-0xFF  hide the scene's shapes, or show them again
// The first byte's bit 0 set means the handle is not initialised before the first operation.
// With PLOVIX_FUZZ_TRACE set in the environment, every frame's record is printed (for writing seeds).
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "engine/plovix_engine.h"
#include "engine/scene.h"
#include "plovixengine.h"
#include "support/fuzz_support.h"

namespace plovix_fuzz {

namespace {

// Long enough for the block search after 100 lost frames and the end of tracking after 101.
constexpr int kMaxFrames = 160;
// Keeps a single input well under a second under the sanitizers.
constexpr int64_t kPixelBudget = 6 * 640 * 480;

constexpr int kMaxRandomWidth = 640;
constexpr int kMaxRandomHeight = 480;

struct Size {
  int w, h;
};
// Degenerate, tiny, odd, the 42-pixel lost-search edge, common preview sizes, a few that are
// decimated (rate 2 and 4, down to working widths of 1 and 2 pixels), long thin ones, plus zero and
// negative sides.
constexpr Size kSizes[] = {{1, 1},     {2, 2},     {3, 3},     {4, 4},      {5, 3},     {7, 9},     {16, 16},
                           {41, 43},   {42, 42},   {43, 41},   {42, 80},    {80, 42},   {63, 47},   {64, 48},
                           {96, 72},   {101, 75},  {160, 120}, {176, 144},  {320, 240}, {321, 241}, {352, 288},
                           {640, 480}, {639, 479}, {800, 600}, {810, 600},  {1280, 720}, {960, 720}, {0, 0},
                           {0, 10},    {10, 0},    {-2, -2},   {64, 11},    {64, 10},   {2, 480},   {480, 2},
                           {4, 724},   {8, 720},   {800, 720}, {4000, 2},   {2, 4000},  {1600, 3},  {3, 1200}};

constexpr int32_t kFormats[] = {2, 3, 7, 2, 3, 7, 0, 1, 4, 5, 6, 8, -1, INT_MIN, INT_MAX, 255, 258};
constexpr int32_t kSensors[] = {-1, 0, 1, 2, -2, INT_MIN, INT_MAX};
constexpr float kInf = std::numeric_limits<float>::infinity();
constexpr float kZooms[] = {1.0f,  2.0f,   10.0f,     0.0f,    std::numeric_limits<float>::quiet_NaN(),
                            kInf,  -kInf,  11.0f,     -1.0f,   0.999f,
                            10.001f, FLT_MIN, FLT_MAX, -0.0f,  std::numeric_limits<float>::denorm_min()};
constexpr int32_t kExtremeRequests[] = {INT_MIN, INT_MAX, INT_MIN + 1, INT_MAX - 1, -1001, 1001, -1000,
                                        1000,    0,       -100000,     100000,      1 << 30, -(1 << 30)};

enum : uint8_t {
  kChangeSize = 1,
  kChangeRequest = 2,
  kChangeZoom = 4,
  kChangeSensor = 8,
  kChangeFormat = 16,
  kChangeStride = 32,
  kHoldScene = 64,
};
constexpr uint8_t kFirstInitOp = 0xE0;
constexpr uint8_t kFirstDeinitOp = 0xE8;
constexpr uint8_t kFirstSceneOp = 0xF0;
constexpr uint8_t kFirstHideOp = 0xF8;

bool IsAcceptedFormat(int32_t f) { return f == 2 || f == 3 || f == 7; }

int32_t ToFocusUnits(int pixel, int side) {
  return side > 0 ? static_cast<int32_t>(int64_t{pixel} * 2000 / side - 1000) : 0;
}

class Stream {
 public:
  explicit Stream(ByteReader* in) : in_(in), handle_(create_plovix_handle()) {
    rec_.nFormat = 2;
    rec_.nSensorType = -1;
    rec_.fZoomRatio = 1.0f;
    rec_.nTrackState = rec_.nPredictState = PLOVIX_STATE_NOT_TRACKING;
    SetSize(Size{64, 48});
  }
  ~Stream() { destroy_plovix_handle(handle_); }
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;

  void Run(bool init) {
    if (init) init_plovix(handle_);
    for (int frames = 0; frames < kMaxFrames && !in_->Empty() && pixels_ < kPixelBudget;) {
      const uint8_t op = in_->U8();
      if (op >= kFirstHideOp) {
        scene_.hidden = !scene_.hidden;
      } else if (op >= kFirstSceneOp) {
        scene_ = Scene::Read(in_);
      } else if (op >= kFirstDeinitOp) {
        Check(deinit_plovix(handle_) == 0, "deinit_plovix result");
      } else if (op >= kFirstInitOp) {
        Check(init_plovix(handle_) == 0, "init_plovix result");
      } else {
        Frame(op);
        ++frames;
      }
    }
  }

 private:
  void SetSize(Size s) {
    rec_.nWidth = s.w;
    rec_.nHeight = s.h;
    rec_.nStride = s.w;
  }

  Size ReadSize() {
    const uint8_t pick = in_->U8();
    if (pick < 128) return kSizes[pick % (sizeof kSizes / sizeof kSizes[0])];
    const int w = 1 + in_->U16() % kMaxRandomWidth;
    return Size{w, 1 + in_->U16() % kMaxRandomHeight};
  }

  int32_t ReadStride() {
    const int32_t w = rec_.nWidth;
    const int32_t strides[] = {w, w - 1, w + 64, 0, -1, INT_MIN, INT_MAX};
    return in_->Pick(strides);
  }

  float ReadZoom() {
    const uint8_t pick = in_->U8();
    if (pick >= 128) return 1.0f + static_cast<float>(pick - 128) * (9.0f / 127.0f);
    return kZooms[pick % (sizeof kZooms / sizeof kZooms[0])];
  }

  // A touch on one of the scene's shapes, anywhere in focus units, at an extreme, or raw.
  void ReadRequest() {
    rec_.bTrackRequest = static_cast<uint8_t>(1 + in_->U8() % 255);
    switch (in_->U8() % 4) {
      case 0: {
        int x = 0, y = 0;
        scene_.ShapeCentre(in_->U8(), rec_.nWidth, rec_.nHeight, &x, &y);
        rec_.nRequestX = ToFocusUnits(x, rec_.nWidth);
        rec_.nRequestY = ToFocusUnits(y, rec_.nHeight);
        break;
      }
      case 1:
        rec_.nRequestX = in_->U16() % 2001 - 1000;
        rec_.nRequestY = in_->U16() % 2001 - 1000;
        break;
      case 2:
        rec_.nRequestX = in_->Pick(kExtremeRequests);
        rec_.nRequestY = in_->Pick(kExtremeRequests);
        break;
      default:
        rec_.nRequestX = in_->I32();
        rec_.nRequestY = in_->I32();
        break;
    }
  }

  void ApplyChanges(uint8_t flags) {
    if (flags & kChangeSize) SetSize(ReadSize());
    if (flags & kChangeRequest) ReadRequest();
    if (flags & kChangeZoom) rec_.fZoomRatio = ReadZoom();
    if (flags & kChangeSensor) rec_.nSensorType = in_->Pick(kSensors);
    if (flags & kChangeFormat) rec_.nFormat = in_->Pick(kFormats);
    if (flags & kChangeStride) rec_.nStride = ReadStride();
  }

  void Frame(uint8_t flags) {
    ApplyChanges(flags);
    HostFrame frame(rec_.nWidth, rec_.nHeight);
    PaintScene(scene_, &frame);
    if (!(flags & kHoldScene)) scene_.Advance();
    pixels_ += static_cast<int64_t>(frame.y.size());

    rec_.pY = frame.y.get();
    rec_.pUV = frame.uv.get();
    const PlovixStruct before = rec_;
    const int result = process_plovix(handle_, &rec_);
    if (trace_) Trace(result);
    CheckRecord(before, result);
    rec_.pY = rec_.pUV = nullptr;
    rec_.bTrackRequest = 0;
  }

  void Trace(int result) const {
    std::fprintf(stderr, "%dx%d format %d zoom %g sensor %d -> %d state %d box %d %d %d %d\n", rec_.nWidth,
                 rec_.nHeight, rec_.nFormat, static_cast<double>(rec_.fZoomRatio), rec_.nSensorType, result,
                 rec_.nTrackState, rec_.nLeft, rec_.nRight, rec_.nTop, rec_.nBottom);
  }

  void CheckRecord(const PlovixStruct& before, int result) {
    const auto* engine = static_cast<const PlovixEngine*>(handle_);
    Check(result == 0 || result == -1, "process_plovix result", result);
    Check(rec_.nTrackState >= 1 && rec_.nTrackState <= 3, "nTrackState in 1..3", rec_.nTrackState);
    Check(rec_.nPredictState == rec_.nTrackState, "nPredictState equals nTrackState", rec_.nPredictState,
          rec_.nTrackState);
    if (!IsAcceptedFormat(before.nFormat)) {
      Check(result == -1, "refused format returns -1", before.nFormat);
      Check(std::memcmp(&before, &rec_, sizeof rec_) == 0, "refused format leaves the record unwritten");
      return;
    }
    if (result == -1) {
      // A box side below 2 clears the request and writes nothing else. A frame without pixels may
      // also be refused outright, leaving the record as it was.
      PlovixStruct expected = before;
      expected.bTrackRequest = 0;
      const bool degenerate = engine->boxRealsize < 2 && std::memcmp(&expected, &rec_, sizeof rec_) == 0;
      const bool noPixels = before.nWidth <= 0 || before.nHeight <= 0;
      const bool refused = noPixels && std::memcmp(&before, &rec_, sizeof rec_) == 0;
      Check(degenerate || refused, "-1 for an accepted format only with a degenerate box", engine->boxRealsize);
      return;
    }
    Check(rec_.bTrackRequest == 0, "request cleared", rec_.bTrackRequest);
    if (rec_.nTrackState == PLOVIX_STATE_NOT_TRACKING) return;
    Check(rec_.nWeight == 100 && rec_.nPredictWeight == 100, "weights 100", rec_.nWeight, rec_.nPredictWeight);
    if (rec_.nWidth <= engine->boxRealsize) return;
    const int32_t box[] = {rec_.nLeft,        rec_.nRight,        rec_.nTop,        rec_.nBottom,
                           rec_.nPredictLeft, rec_.nPredictRight, rec_.nPredictTop, rec_.nPredictBottom};
    for (int32_t v : box) Check(v >= -1000 && v <= 1000, "box within -1000..1000", v, rec_.nWidth);
  }

  ByteReader* in_;
  void* handle_;
  PlovixStruct rec_{};
  Scene scene_ = Scene::Default();
  int64_t pixels_ = 0;
  bool trace_ = std::getenv("PLOVIX_FUZZ_TRACE") != nullptr;
};

}  // namespace

}  // namespace plovix_fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace plovix_fuzz;
  static const bool silenced = (SilenceEngineLog(), true);
  (void)silenced;
  ResetEngineGlobals();
  ByteReader in(data, size);
  const bool init = (in.U8() & 1) == 0;
  Stream(&in).Run(init);
  return 0;
}
