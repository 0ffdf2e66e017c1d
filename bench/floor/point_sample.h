// The floor under any decimating tracker: read the samples of a working image out of a full
// frame and nothing else. A plain loop, so that the engine's own numbers can be read against it.
#pragma once

#include <cstdint>

namespace plovix_bench {

// Luma every step-th pixel of every step-th row, and the chroma pair of every step-th pair of
// every step-th chroma row, of an NV21 frame with rows srcW bytes apart, into a dstW x dstH
// working image (luma, then chroma rows 2 x (dstW / 2) bytes long).
void PointSampleNv21(const uint8_t* y, const uint8_t* vu, int srcW, int step, uint8_t* dst, int dstW, int dstH);

}  // namespace plovix_bench
