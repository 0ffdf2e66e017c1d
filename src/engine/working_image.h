// The working image: a decimated copy of each frame (luma, then interleaved chroma pairs packed
// 2 x (w/2) bytes a row), on which segmentation and tracking run, and the tuning factors derived
// from its size.
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "platform/export.h"

class PlovixEngine;

// Chooses the resize rate and working size for a width x height frame, recomputes the tuning
// factors and the engine's boxRealsize, and allocates a zeroed working buffer into m_pWorkBuf
// (null when the size cannot be allocated). Logs the rate and the factors.
void CreateWorkingImage(PlovixEngine* engine, int width, int height, int format);

// Samples the top-left pixel of every rate x rate cell (rate = srcW / dstW) of separate luma and
// chroma planes, rows srcW bytes apart, into a dstW x dstH working image. Chroma pairs keep their
// byte order.
void DecimateFrame(const uint8_t* srcY, const uint8_t* srcUV, int srcW, uint8_t* dst, int dstW, int dstH);
// The same for part of the image: the luma of rows [top, bottom) and columns [left, right) of rect,
// which lies inside the working image.
void DecimateLuma(const uint8_t* srcY, int srcW, uint8_t* dst, int dstW, OT_RECT rect);
// The chroma of pairs [left, right) of chroma rows [top, bottom) of pairs, counted as the working
// image packs them (rows 2 x (dstW / 2) bytes apart); pairs lies inside the packed chroma.
void DecimateChroma(const uint8_t* srcUV, int srcW, uint8_t* dst, int dstW, int dstH, OT_RECT pairs);

// The same decimation for one contiguous buffer whose chroma plane follows srcW x srcH luma bytes.
PLOVIX_EXPORT void resizeNV21(const uint8_t* src, int srcW, int srcH, uint8_t* dst, int dstW, int dstH);
// The same with separate planes; srcH is not used.
PLOVIX_EXPORT void resizeNV21_UV(const uint8_t* srcY, const uint8_t* srcUV, int srcW, int srcH, uint8_t* dst,
                                 int dstW, int dstH);
