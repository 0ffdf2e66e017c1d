#include "floor/point_sample.h"

#include <cstddef>

namespace plovix_bench {

void PointSampleNv21(const uint8_t* y, const uint8_t* vu, int srcW, int step, uint8_t* dst, int dstW, int dstH) {
  const ptrdiff_t rowStep = static_cast<ptrdiff_t>(step) * srcW;
  for (int r = 0; r < dstH; ++r) {
    const uint8_t* in = y + r * rowStep;
    uint8_t* out = dst + static_cast<ptrdiff_t>(r) * dstW;
    for (int c = 0; c < dstW; ++c) out[c] = in[c * step];
  }
  const int pairs = dstW / 2;
  uint8_t* chroma = dst + static_cast<ptrdiff_t>(dstW) * dstH;
  for (int r = 0; r < dstH / 2; ++r) {
    const uint8_t* in = vu + r * rowStep;
    uint8_t* out = chroma + static_cast<ptrdiff_t>(r) * 2 * pairs;
    for (int k = 0; k < pairs; ++k) {
      out[2 * k] = in[2 * k * step];
      out[2 * k + 1] = in[2 * k * step + 1];
    }
  }
}

}  // namespace plovix_bench
