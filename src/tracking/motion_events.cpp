#include "tracking/motion_events.h"

#include <cmath>
#include <cstdint>

#include "platform/arith.h"
#include "tracking/tracker_state.h"

namespace {

constexpr int kMoveLastSlot = kMoveWindowSlots - 1;
constexpr int kSizeLastSlot = kSizeWindowSlots - 1;

// Below these the rectangle counts as still; vertical is stricter on purpose.
constexpr int kStillMoveX = 7;
constexpr int kStillMoveY = 3;
constexpr int kStillSizeW = 2;
constexpr int kStillSizeH = 1;

// Not pi: the angles, and so the codes near a boundary, depend on this value.
constexpr double kHalfTurnRadians = 3.14;
constexpr float kHalfTurnDegreesF = 180.0f;
constexpr int kHalfTurnDegrees = 180;
constexpr int kFullTurnDegrees = 360;

struct AngleCode {
  int below;  // first angle of the next sector
  int code;
};
// Sectors in degrees, counter-clockwise from "right", y pointing up.
constexpr AngleCode kAngleCodes[] = {
    {15, 2},  {75, 7},  {105, 3}, {165, 5}, {195, 1},
    {255, 6}, {285, 4}, {345, 8}, {360, 2},
};

constexpr int kSizeCodes[] = {1, 2, 0, 3, 5, 7, 0, 4, 6, 8};
constexpr uint32_t kWider = 32, kNarrower = 64, kTaller = 128, kShorter = 256;
constexpr int kSizeIndexShift = 5;

int32_t Abs32(int32_t v) { return v < 0 ? Wrap32Neg(v) : v; }
int32_t Sum3(int32_t a, int32_t b, int32_t c) { return Wrap32Add(Wrap32Add(a, b), c); }
int32_t Centre(int32_t lo, int32_t hi) { return Wrap32Add(lo, Wrap32Sub(hi, lo) >> 1); }

uint32_t RotateRight(uint32_t v, int n) { return (v >> n) | (v << (32 - n)); }

template <int N>
void SlideWindow(OT_RECT (&slots)[N]) {
  for (int i = 0; i + 1 < N; ++i) slots[i] = slots[i + 1];
}

// dx, dy are old minus new; the angle is that of the movement, new minus old, with y up.
int DirectionCode(int32_t dx, int32_t dy) {
  const int32_t ady = Abs32(dy);
  const float length = std::sqrt(static_cast<float>(Wrap32Add(Wrap32Mul(dx, dx), Wrap32Mul(dy, dy))));
  const float asin_by_half_turn = std::asin(static_cast<float>(ady) / length) * kHalfTurnDegreesF;
  const int theta = TruncToInt(static_cast<double>(asin_by_half_turn) / kHalfTurnRadians);
  int angle;
  if (dx < 0 && dy >= 0) {
    angle = theta;
  } else if (dx >= 0 && dy >= 0) {
    angle = kHalfTurnDegrees - theta;
  } else if (dx >= 0) {
    angle = kHalfTurnDegrees + theta;
  } else {
    angle = kFullTurnDegrees - theta;
  }
  for (const AngleCode& sector : kAngleCodes) {
    if (angle < sector.below) return sector.code;
  }
  return 0;
}

}  // namespace

int ActionMotionEventM(OT_RECT r) {
  const int count = g_nDirMCount;
  if (count > kMoveLastSlot) return 1;
  if (count < 0) return 0;
  otDirM[count] = r;
  if (count == kMoveLastSlot) return 1;
  g_nDirMCount = count + 1;
  return 0;
}

int ActionMotionEventS(OT_RECT r) {
  const int count = g_nDirSCount;
  if (count > kSizeLastSlot || count < 0) return 0;
  otDirS[count] = r;
  if (count == kSizeLastSlot) return 1;
  g_nDirSCount = count + 1;
  return 0;
}

int ActionMotionEventMove(int* dx, int* dy) {
  const OT_RECT* s = otDirM;
  const int32_t aL = Sum3(s[0].left, s[1].left, s[2].left) / 3;
  const int32_t aT = Sum3(s[0].top, s[1].top, s[2].top) / 3;
  const int32_t aR = Sum3(s[0].right, s[1].right, s[2].right) / 3;
  const int32_t aB = Sum3(s[0].bottom, s[1].bottom, s[2].bottom) / 3;
  const OT_RECT& n = s[kMoveLastSlot];
  const int32_t ddx = Wrap32Sub(Centre(aL, aR), Centre(n.left, n.right));
  const int32_t ddy = Wrap32Sub(Centre(aT, aB), Centre(n.top, n.bottom));

  SlideWindow(otDirM);
  g_nDirMCount = kMoveLastSlot;

  if (Abs32(ddx) <= kStillMoveX && Abs32(ddy) <= kStillMoveY) return 0;
  *dx = Wrap32Neg(ddx);
  *dy = Wrap32Neg(ddy);
  return DirectionCode(ddx, ddy);
}

int ActionMotionEventSize() {
  const OT_RECT* s = otDirS;
  const int32_t aW = Wrap32Sub(Sum3(s[0].right, s[1].right, s[2].right) / 3, Sum3(s[0].left, s[1].left, s[2].left) / 3);
  const int32_t aH = Wrap32Sub(Sum3(s[0].bottom, s[1].bottom, s[2].bottom) / 3, Sum3(s[0].top, s[1].top, s[2].top) / 3);
  const OT_RECT& n = s[kSizeLastSlot];
  const int32_t nW = Wrap32Sub(n.right, n.left);
  const int32_t nH = Wrap32Sub(n.bottom, n.top);

  SlideWindow(otDirS);
  g_nDirSCount = kSizeLastSlot;

  if (Abs32(Wrap32Sub(aW, nW)) <= kStillSizeW && Abs32(Wrap32Sub(aH, nH)) <= kStillSizeH) return 0;
  const uint32_t hx = aW < nW ? kWider : (aW > nW ? kNarrower : 0);
  const uint32_t hy = aH < nH ? kTaller : (aH > nH ? kShorter : 0);
  // (hx + hy) / 32 - 1 for every sum that can occur; a sum of 0 rotates into a huge index.
  const uint32_t index = RotateRight(hx + hy - kWider, kSizeIndexShift);
  if (index >= sizeof(kSizeCodes) / sizeof(kSizeCodes[0])) return 0;
  return kSizeCodes[index];
}
