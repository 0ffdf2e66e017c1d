#include "engine/plovix_engine.h"

#include <cstddef>
#include <cstdlib>

#include "engine/coordinates.h"
#include "engine/frame_intake.h"
#include "engine/rect_adjust.h"
#include "engine/working_image.h"
#include "model/selection.h"
#include "platform/arith.h"
#include "platform/clock.h"
#include "platform/log.h"
#include "tracking/driver.h"
#include "tracking/tracker_state.h"

namespace {

constexpr const char* kVersion = "v0.964_POSVNDK+NV12";

constexpr int kPredictHorizon = 5;
constexpr int kPredictHistory = 10;
static_assert(kPredictHistory <= MotionPredictor::kHistoryCapacity, "the predictor's ring holds the history");
constexpr float kUnknownZoomRatio = -1.0f;
constexpr int32_t kResultWeight = 100;

constexpr int32_t kFormatNv21 = 2;
constexpr int32_t kFormatNv12Venus = 3;
constexpr int32_t kFormatNv12 = 7;

// The driver's state: anything but these two is an invalid state.
constexpr int kDriverTracking = 0;
constexpr int kDriverTempLost = 1;

constexpr int32_t kRequestOffset = 1000;
constexpr float kRequestSpan = 2000.0f;
constexpr int32_t kMsPerSecond = 1000;

class MutexLock {
 public:
  explicit MutexLock(pthread_mutex_t* m) : m_(m) { pthread_mutex_lock(m_); }
  ~MutexLock() { pthread_mutex_unlock(m_); }
  MutexLock(const MutexLock&) = delete;
  MutexLock& operator=(const MutexLock&) = delete;

 private:
  pthread_mutex_t* m_;
};

void ReleaseWorkBuffer(PlovixEngine& e) {
  MutexLock lock(&e.m_mutex);
  std::free(e.m_pWorkBuf);
  e.m_pWorkBuf = nullptr;
}

void ForgetSession(PlovixEngine& e) {
  e.m_bTracking = false;
  e.m_trackRect = {0, 0, 0, 0};
  e.m_nPrevWidth = 0;
  e.m_nPrevHeight = 0;
  e.m_nWorkWidth = 0;
  e.m_nWorkHeight = 0;
  e.m_fPrevZoomRatio = kUnknownZoomRatio;
}

// A sensor correction owed after a size change, with the working size it comes from.
struct PendingCorrection {
  bool due = false;
  int32_t prevWorkWidth = 0;
  int32_t prevWorkHeight = 0;
};

bool IsAcceptedFormat(int32_t format) {
  return format == kFormatNv21 || format == kFormatNv12Venus || format == kFormatNv12;
}

// Every plane offset the engine computes is a 32-bit quantity, so a frame whose bytes (luma plus
// the half-height chroma plane) do not fit in 32 bits cannot be addressed; a negative size has no
// byte count at all.
bool HasAddressableSize(const PlovixStruct& rec) {
  if (rec.nWidth < 0 || rec.nHeight < 0) return false;
  const int64_t bytes = static_cast<int64_t>(rec.nWidth) * rec.nHeight * 3 / 2;
  return bytes <= INT32_MAX;
}

// Host mistakes that have no defined answer get a refusal instead of a crash; nothing is touched.
bool RefuseBadFrame(const PlovixStruct& rec) {
  if (!HasAddressableSize(rec)) {
    PLOVIX_LOGE("PlovixPlugin frame size %dx%d is not supported", rec.nWidth, rec.nHeight);
    return true;
  }
  if (rec.pY == nullptr || rec.pUV == nullptr) {
    PLOVIX_LOGE("PlovixPlugin process called with a null plane");
    return true;
  }
  return false;
}

void SetStates(PlovixStruct* rec, int32_t state) {
  rec->nTrackState = state;
  rec->nPredictState = state;
}

void ClearBoxes(PlovixStruct* rec) {
  rec->nLeft = rec->nRight = rec->nTop = rec->nBottom = 0;
  rec->nPredictLeft = rec->nPredictRight = rec->nPredictTop = rec->nPredictBottom = 0;
}

uint8_t* WorkingChroma(const PlovixEngine& e) {
  return e.m_pWorkBuf + static_cast<ptrdiff_t>(e.m_nWorkWidth) * e.m_nWorkHeight;
}

int32_t CentreX(const OT_RECT& r) { return Wrap32Add(r.left, r.right) / 2; }
int32_t CentreY(const OT_RECT& r) { return Wrap32Add(r.top, r.bottom) / 2; }

int ValidateBox(OT_RECT* r, const PlovixStruct& rec, int maxSize) {
  return PlovixEngine::ValidateRect(&r->left, &r->right, &r->top, &r->bottom, rec.nWidth, rec.nHeight, maxSize);
}

void WarnAboutStride(const PlovixStruct& rec) {
  if (rec.nStride < rec.nWidth) {
    PLOVIX_LOGE("PlovixPlugin stride was set to %d, using nWidth as stride", rec.nStride);
  }
}

PendingCorrection NoteSizeChange(PlovixEngine& e, const PlovixStruct& rec) {
  PendingCorrection correction;
  if (rec.nWidth != e.m_nPrevWidth || rec.nHeight != e.m_nPrevHeight) {
    if (e.m_nPrevWidth >= 1 && e.m_nPrevHeight >= 1 && e.m_bLastTrackOk) {
      correction = {true, e.m_nWorkWidth, e.m_nWorkHeight};
    }
    ReleaseWorkBuffer(e);
    e.m_nPrevWidth = rec.nWidth;
    e.m_nPrevHeight = rec.nHeight;
  }
  e.m_bLastTrackOk = false;
  return correction;
}

// The frame is taken into the working image as the steps that read it ask for it: all of it for a
// selection or a search, the object's neighbourhood while tracking, nothing while not tracking.
FrameIntake RefreshWorkingImage(PlovixEngine& e, const PlovixStruct& rec) {
  if (e.m_pWorkBuf == nullptr) CreateWorkingImage(&e, rec.nWidth, rec.nHeight, rec.nFormat);
  return FrameIntake(rec.pY, rec.pUV, rec.nWidth, e.m_pWorkBuf, e.m_nWorkWidth, e.m_nWorkHeight);
}

// The product is 32-bit (wrapping for absurd requests); the divisions are single precision.
int32_t RequestToWorkingPixel(int32_t request, int32_t size, int32_t rate) {
  const int32_t scaled = Wrap32Mul(Wrap32Add(request, kRequestOffset), size);
  return TruncToInt(static_cast<float>(scaled) / kRequestSpan / static_cast<float>(rate));
}

void HandleTouchRequest(PlovixEngine& e, PlovixStruct* rec, FrameIntake* intake) {
  rec->bTrackRequest = 0;
  e.m_nReqX = RequestToWorkingPixel(rec->nRequestX, rec->nWidth, e.m_nResizeRate);
  e.m_nReqY = RequestToWorkingPixel(rec->nRequestY, rec->nHeight, e.m_nResizeRate);
  PLOVIX_LOGI("PlovixPlugin tracking request: pos %d %d", e.m_nReqX, e.m_nReqY);

  // Without a working buffer there is nothing to select from.
  int selected = 0;
  if (e.m_pWorkBuf != nullptr) {
    intake->TakeAll();
    selected = OTK_ObjTrackBgnSegment(e.m_pWorkBuf, WorkingChroma(e), e.m_nWorkWidth, e.m_nWorkHeight,
                                      e.m_nWorkWidth, e.m_nReqX, e.m_nReqY);
  }
  if (selected >= 1) {
    e.m_bTracking = true;
    PLOVIX_LOGI("PlovixPlugin select object success");
    return;
  }
  e.m_bTracking = false;
  SetStates(rec, PLOVIX_STATE_NOT_TRACKING);
  e.m_predictor.Reset();
  ClearBoxes(rec);
  PLOVIX_LOGI("PlovixPlugin select object failed");
}

void ApplySensorCorrection(const PlovixEngine& e, const PlovixStruct& rec, const PendingCorrection& correction) {
  if (!correction.due || rec.nSensorType == kSensorTypeUnknown) return;
  PLOVIX_LOGI("PlovixPlugin AdjustTrackRect Applied with sensor type %d", rec.nSensorType);
  AdjustTrackRect(rec.nSensorType, correction.prevWorkWidth, correction.prevWorkHeight, e.m_nWorkWidth,
                  e.m_nWorkHeight);
}

void ApplyZoomCorrection(PlovixEngine& e, float zoom) {
  if (IsValidZoomRatio(zoom) && zoom != e.m_fPrevZoomRatio && IsValidZoomRatio(e.m_fPrevZoomRatio)) {
    if (ResizeTrackRect(e.m_fPrevZoomRatio, zoom, e.m_nWorkWidth, e.m_nWorkHeight) != 0) {
      PLOVIX_LOGE("ResizeTrackRect returned error, so tracking will fail");
    }
  }
  // Stored unvalidated: after an invalid ratio the next valid one is not compared with anything.
  e.m_fPrevZoomRatio = zoom;
}

// Returns the driver's result; a missing working buffer ends tracking instead of being read.
int RunTrackingStep(PlovixEngine& e, FrameIntake* intake, int* state) {
  if (e.m_pWorkBuf == nullptr) return 0;
  int moveEvent = 0;
  int sizeEvent = 0;
  int moveX = 0;
  int moveY = 0;
  return TrackFrame(intake, e.m_pWorkBuf, WorkingChroma(e), e.m_nWorkWidth, e.m_nWorkHeight, e.m_nWorkWidth,
                    &e.m_trackRect, &moveEvent, &sizeEvent, &moveX, &moveY, state);
}

// The weights are left as they were.
void EndTracking(PlovixEngine& e, PlovixStruct* rec) {
  ClearBoxes(rec);
  rec->nOffsetX = rec->nOffsetY = 0;
  rec->nVelocityX = rec->nVelocityY = 0;
  e.m_lLastTimeMs = 0;
  e.m_bTracking = false;
  e.m_predictor.Reset();
  SetStates(rec, PLOVIX_STATE_NOT_TRACKING);
}

// A box of the fixed side 2 x (boxRealsize / 2) around the tracked rectangle's centre, in input
// pixels, clamped into the frame. False (after logging) when the box is degenerate.
bool MakeDisplayBox(const PlovixEngine& e, const PlovixStruct& rec, OT_RECT* box) {
  const int32_t cx = Wrap32Mul(Wrap32Add(e.m_trackRect.left, e.m_trackRect.right), e.m_nResizeRate) / 2;
  const int32_t cy = Wrap32Mul(Wrap32Add(e.m_trackRect.top, e.m_trackRect.bottom), e.m_nResizeRate) / 2;
  const int32_t half = e.boxRealsize / 2;
  *box = {Wrap32Sub(cx, half), Wrap32Sub(cy, half), Wrap32Add(cx, half), Wrap32Add(cy, half)};
  if (ValidateBox(box, rec, e.boxRealsize) != 0) {
    PLOVIX_LOGE("PlovixPlugin Rect Size error %d %d %d %d", box->left, box->right, box->top, box->bottom);
    return false;
  }
  return true;
}

// A degenerate prediction is logged by the validation and reported all the same.
OT_RECT PredictBox(PlovixEngine& e, const PlovixStruct& rec, const OT_RECT& box) {
  MotionVector in = {CentreX(box), CentreY(box), box.left, box.top, box.right, box.bottom};
  MotionVector out;
  e.m_predictor.GetMotion(&in, &out);
  OT_RECT predicted = {out.left, out.top, out.right, out.bottom};
  ValidateBox(&predicted, rec, e.boxRealsize);
  return predicted;
}

// Input pixels per second: a 32-bit product over the 64-bit interval, the quotient kept as 32 bits.
int32_t Speed(int32_t from, int32_t to, int64_t intervalMs) {
  const int64_t quotient = Wrap32Mul(Wrap32Sub(to, from), kMsPerSecond) / intervalMs;
  return static_cast<int32_t>(static_cast<uint32_t>(quotient));
}

void WriteVelocity(PlovixEngine& e, PlovixStruct* rec, const OT_RECT& predicted) {
  const int32_t px = CentreX(predicted);
  const int32_t py = CentreY(predicted);
  const int64_t now = CurrentTimeMs();
  int32_t vx = 0;
  int32_t vy = 0;
  if (e.m_lLastTimeMs != 0) {
    if (now == e.m_lLastTimeMs) {
      PLOVIX_LOGE("PlovixPlugin lDiff is 0!!");
    } else {
      vx = Speed(e.m_nPrevCenterX, px, now - e.m_lLastTimeMs);
      vy = Speed(e.m_nPrevCenterY, py, now - e.m_lLastTimeMs);
    }
  }
  rec->nVelocityX = vx;
  rec->nVelocityY = vy;
  e.m_lLastTimeMs = now;
  e.m_nPrevCenterX = px;
  e.m_nPrevCenterY = py;
}

// Both boxes in focus units, in the record's order left, right, top, bottom.
void WriteResults(PlovixStruct* rec, const OT_RECT& box, const OT_RECT& predicted) {
  const int32_t w = rec->nWidth;
  const int32_t h = rec->nHeight;
  rec->nLeft = PixelToFocusUnits(box.left, w);
  rec->nRight = PixelToFocusUnits(box.right, w);
  rec->nTop = PixelToFocusUnits(box.top, h);
  rec->nBottom = PixelToFocusUnits(box.bottom, h);
  rec->nWeight = kResultWeight;
  rec->nPredictLeft = PixelToFocusUnits(predicted.left, w);
  rec->nPredictRight = PixelToFocusUnits(predicted.right, w);
  rec->nPredictTop = PixelToFocusUnits(predicted.top, h);
  rec->nPredictBottom = PixelToFocusUnits(predicted.bottom, h);
  rec->nPredictWeight = kResultWeight;
  rec->nOffsetX = Wrap32Sub(CentreX(box), CentreX(predicted));
  rec->nOffsetY = Wrap32Sub(CentreY(box), CentreY(predicted));
}

// An invalid driver state leaves the state fields as they were.
void ReportVerdict(PlovixEngine& e, PlovixStruct* rec, int state) {
  if (state == kDriverTracking) {
    PLOVIX_LOGI("PlovixPlugin OTK_ObjTracking OK %d %d %d %d", rec->nLeft, rec->nRight, rec->nTop, rec->nBottom);
    SetStates(rec, PLOVIX_STATE_TRACKING);
    e.m_bLastTrackOk = true;
  } else if (state == kDriverTempLost) {
    PLOVIX_LOGI("PlovixPlugin OTK_ObjTracking TempLost %d %d %d %d", rec->nLeft, rec->nRight, rec->nTop,
                rec->nBottom);
    SetStates(rec, PLOVIX_STATE_TEMP_LOST);
    e.m_lLastTimeMs = 0;
    e.m_predictor.Reset();
  } else {
    PLOVIX_LOGE("PlovixPlugin OTK_ObjTracking Error: not valid state");
  }
}

}  // namespace

PlovixEngine::PlovixEngine()
    : m_bInitialized(false),
      m_bLastTrackOk(false),
      m_nPredictHorizon(0),
      m_bTracking(false),
      m_pWorkBuf(nullptr),
      m_trackRect{0, 0, 0, 0},
      m_nPrevWidth(0),
      m_nPrevHeight(0),
      m_nWorkWidth(0),
      m_nWorkHeight(0),
      m_nReqX(0),
      m_nReqY(0),
      m_nResizeRate(0),
      m_lLastTimeMs(0),
      m_nPrevCenterX(0),
      m_nPrevCenterY(0),
      m_fPrevZoomRatio(0.0f),
      boxRealsize(0) {
  pthread_mutex_init(&m_mutex, nullptr);
}

PlovixEngine::~PlovixEngine() {
  ReleaseWorkBuffer(*this);
  pthread_mutex_destroy(&m_mutex);
}

int PlovixEngine::Init() {
  PLOVIX_LOGI("PlovixPlugin init called ver %s", kVersion);
  if (m_bInitialized) {
    PLOVIX_LOGE("PlovixPlugin init called again without deinit, so exit init process");
    return 0;
  }
  m_bInitialized = true;
  m_nPredictHorizon = kPredictHorizon;
  m_predictor.SetPredictorOptions(kPredictHorizon, kPredictHistory);
  m_predictor.Reset();
  ForgetSession(*this);
  m_lLastTimeMs = 0;
  ReleaseWorkBuffer(*this);
  return 0;
}

int PlovixEngine::DeInit() {
  PLOVIX_LOGI("PlovixPlugin deinit called");
  if (!m_bInitialized) {
    PLOVIX_LOGE("PlovixPlugin deinit called without init, but continue deinitialize process");
  }
  m_predictor.Reset();
  ForgetSession(*this);
  {
    MutexLock lock(&m_mutex);
    std::free(m_pWorkBuf);
    m_pWorkBuf = nullptr;
    std::free(pObj_window);
    pObj_window = nullptr;
    std::free(pObj_Seg_window);
    pObj_Seg_window = nullptr;
  }
  m_bInitialized = false;
  return 0;
}

int PlovixEngine::Process(PlovixStruct* rec) {
  if (!IsAcceptedFormat(rec->nFormat)) {
    PLOVIX_LOGE("PlovixPlugin currently only support nv21, nv12_venus, nv12 input");
    return -1;
  }
  if (RefuseBadFrame(*rec)) return -1;
  WarnAboutStride(*rec);
  PendingCorrection correction = NoteSizeChange(*this, *rec);
  FrameIntake intake = RefreshWorkingImage(*this, *rec);
  if (rec->bTrackRequest != 0) {
    HandleTouchRequest(*this, rec, &intake);
    correction.due = false;
  }
  if (!m_bTracking) {
    PLOVIX_LOGE("PlovixPlugin non tracking mode");
    SetStates(rec, PLOVIX_STATE_NOT_TRACKING);
    return 0;
  }
  ApplySensorCorrection(*this, *rec, correction);
  ApplyZoomCorrection(*this, rec->fZoomRatio);

  int state = 0;
  if (RunTrackingStep(*this, &intake, &state) < 1) {
    EndTracking(*this, rec);
    return 0;
  }
  OT_RECT box;
  if (!MakeDisplayBox(*this, *rec, &box)) return -1;
  const OT_RECT predicted = PredictBox(*this, *rec, box);
  WriteVelocity(*this, rec, predicted);
  WriteResults(rec, box, predicted);
  ReportVerdict(*this, rec, state);
  return 0;
}
