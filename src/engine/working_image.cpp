#include "engine/working_image.h"

#include <cstddef>

#include "engine/plovix_engine.h"
#include "engine/tuning.h"
#include "platform/arith.h"
#include "platform/log.h"
#include "platform/memory.h"

namespace {

// Frames taller than this whose sides are multiples of the rate are always decimated by it.
constexpr int kLargeFrameMinHeight = 719;
constexpr int kLargeFrameRate = 4;
// Narrower frames are used as they are.
constexpr int kMinDecimatedWidth = 800;
// A larger common divisor is tried only while the working width stays above this.
constexpr int kMinWorkWidthExclusive = 399;

// The tuning factors' reference: their values at a 270-line working image.
constexpr double kReferenceWorkHeight = 270.0;
constexpr double kMaxObjSizeAtReference = 100.0;
constexpr double kMinObjSizeAtReference = 20.0;
constexpr double kSearchOffsetAtReference = 5.0;
// The double nearest 5/27: a 200-pixel box on a 1080-line frame.
constexpr double kBoxSizePerInputLine = 0.18518518518518517;

int ChooseResizeRate(int width, int height) {
  if (height > kLargeFrameMinHeight && width % kLargeFrameRate == 0 && height % kLargeFrameRate == 0) {
    return kLargeFrameRate;
  }
  if (width < kMinDecimatedWidth) return 1;
  int rate = 1;
  for (int d = 2;; ++d) {
    if (width % d == 0 && height % d == 0) rate = d;
    if (width / (d + 1) <= kMinWorkWidthExclusive) break;
  }
  return rate;
}

// n + (n % 2) with the C remainder: odd positive values go up to the next even number, odd
// negative ones down.
int EvenUp(int n) { return Wrap32Add(n, n % 2); }

void DeriveTuningFactors(int workHeight) {
  const double f = static_cast<double>(workHeight) / kReferenceWorkHeight;
  g_MAX_OBJ_SIZE = EvenUp(TruncToInt(f * kMaxObjSizeAtReference));
  g_MIN_OBJ_SIZE = EvenUp(TruncToInt(f * kMinObjSizeAtReference));
  g_MIN_OBJ_SIZE_HALF = EvenUp(g_MIN_OBJ_SIZE / 2);
  g_FF_SEARCH_OFFSET = TruncToInt(f * kSearchOffsetAtReference);
}

// Room for (w * h * 3) / 2 bytes, a 32-bit product. A size that is negative or does not fit in
// 32 bits cannot hold the image and counts as a failed allocation.
uint8_t* AllocWorkingBuffer(int w, int h) {
  if (w < 0 || h < 0) return nullptr;
  const int64_t exact = static_cast<int64_t>(w) * h * 3 / 2;
  const int32_t nominal = Wrap32Mul(Wrap32Mul(w, h), 3) / 2;
  if (exact != nominal) return nullptr;
  return AllocZeroedImage(static_cast<size_t>(nominal), static_cast<size_t>(w));
}

}  // namespace

void CreateWorkingImage(PlovixEngine* engine, int width, int height, int format) {
  const int rate = ChooseResizeRate(width, height);
  const int w = width / rate;
  const int h = height / rate;
  engine->m_nResizeRate = rate;
  engine->m_nWorkWidth = w;
  engine->m_nWorkHeight = h;
  PLOVIX_LOGI("PlovixPlugin resize Rate %d %dx%dx -> %dx%dx format %d", rate, width, height, w, h, format);

  DeriveTuningFactors(h);
  engine->boxRealsize = TruncToInt(static_cast<double>(height) * kBoxSizePerInputLine);
  PLOVIX_LOGI("PlovixPlugin T.Factor Result: MaxSize%d MinSize%d MinHalf%d SearchOffset%d boxRealsize%d",
              g_MAX_OBJ_SIZE, g_MIN_OBJ_SIZE, g_MIN_OBJ_SIZE_HALF, g_FF_SEARCH_OFFSET, engine->boxRealsize);

  engine->m_pWorkBuf = AllocWorkingBuffer(w, h);
}

void DecimateLuma(const uint8_t* srcY, int srcW, uint8_t* dst, int dstW, OT_RECT rect) {
  const int64_t step = srcW / dstW;
  const int64_t rowStep = step * srcW;
  for (int64_t r = rect.top; r < rect.bottom; ++r) {
    const uint8_t* src = srcY + r * rowStep;
    uint8_t* out = dst + r * dstW;
    for (int64_t c = rect.left; c < rect.right; ++c) out[c] = src[c * step];
  }
}

void DecimateChroma(const uint8_t* srcUV, int srcW, uint8_t* dst, int dstW, int dstH, OT_RECT pairs) {
  const int64_t step = srcW / dstW;
  const int64_t rowStep = step * srcW;
  const int64_t rowBytes = 2 * (dstW / 2);
  uint8_t* chroma = dst + static_cast<int64_t>(dstW) * dstH;
  for (int64_t r = pairs.top; r < pairs.bottom; ++r) {
    const uint8_t* src = srcUV + r * rowStep;
    uint8_t* out = chroma + r * rowBytes;
    for (int64_t k = pairs.left; k < pairs.right; ++k) {
      out[2 * k] = src[2 * k * step];
      out[2 * k + 1] = src[2 * k * step + 1];
    }
  }
}

void DecimateFrame(const uint8_t* srcY, const uint8_t* srcUV, int srcW, uint8_t* dst, int dstW, int dstH) {
  if (dst == nullptr || dstW < 1 || dstH < 1) return;
  DecimateLuma(srcY, srcW, dst, dstW, OT_RECT{0, 0, dstW, dstH});
  if (dstH < 2 || dstW < 2) return;
  DecimateChroma(srcUV, srcW, dst, dstW, dstH, OT_RECT{0, 0, dstW / 2, dstH / 2});
}

void resizeNV21(const uint8_t* src, int srcW, int srcH, uint8_t* dst, int dstW, int dstH) {
  DecimateFrame(src, src + static_cast<ptrdiff_t>(srcW) * srcH, srcW, dst, dstW, dstH);
}

void resizeNV21_UV(const uint8_t* srcY, const uint8_t* srcUV, int srcW, int /*srcH*/, uint8_t* dst, int dstW,
                   int dstH) {
  DecimateFrame(srcY, srcUV, srcW, dst, dstW, dstH);
}
