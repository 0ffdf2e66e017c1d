#include "platform/memory.h"

#include <cstdlib>

uint8_t* AllocZeroedImage(size_t nominalBytes, size_t rowBytes) {
  return static_cast<uint8_t*>(std::calloc(nominalBytes + ImageReadPad(rowBytes), 1));
}

uint8_t* AllocImage(size_t nominalBytes, size_t rowBytes) {
  return static_cast<uint8_t*>(std::malloc(nominalBytes + ImageReadPad(rowBytes)));
}
