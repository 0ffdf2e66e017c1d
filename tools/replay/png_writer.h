// PNG encoding of 8-bit RGB images, in memory (for embedding) with libpng.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace plovix_replay {

struct RgbImage {
  int width = 0;
  int height = 0;
  std::vector<uint8_t> pixels;  // width * height * 3, rows top to bottom
};

bool EncodePng(const RgbImage& image, std::vector<uint8_t>* png, std::string* error);

}  // namespace plovix_replay
