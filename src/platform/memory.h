// Allocation of image-shaped buffers. The engine reads some buffers before writing every byte, and
// its 2x2 block walks at odd sizes read up to a row past the nominal end; such buffers are
// zero-filled and carry a zero pad, so those reads see zeros and never leave the allocation.
#pragma once

#include <cstddef>
#include <cstdint>

// Zero pad behind an image buffer whose rows are rowBytes long: two rows and a little more.
inline size_t ImageReadPad(size_t rowBytes) { return 2 * rowBytes + 64; }

// calloc(nominal + ImageReadPad(rowBytes)); released with free(). Null on failure.
uint8_t* AllocZeroedImage(size_t nominalBytes, size_t rowBytes);
// The same size uncleared, for an image whose readers have each part made ready before they read it.
uint8_t* AllocImage(size_t nominalBytes, size_t rowBytes);

// Byte at linear index i of a buffer of nominal size n: the byte itself inside, 0 outside (before
// its start as well as past its end). For reads whose rectangle may reach outside an image.
inline uint8_t ByteOrZero(const uint8_t* buf, int64_t n, int64_t i) {
  return (i >= 0 && i < n) ? buf[i] : 0;
}
