#include "png_writer.h"

#include <png.h>

#include <cstring>

namespace plovix_replay {

bool EncodePng(const RgbImage& image, std::vector<uint8_t>* png, std::string* error) {
  png_image info;
  std::memset(&info, 0, sizeof(info));
  info.version = PNG_IMAGE_VERSION;
  info.width = static_cast<png_uint_32>(image.width);
  info.height = static_cast<png_uint_32>(image.height);
  info.format = PNG_FORMAT_RGB;
  const png_int_32 stride = image.width * 3;
  png_alloc_size_t size = 0;
  // The first call only measures.
  if (!png_image_write_to_memory(&info, nullptr, &size, 0, image.pixels.data(), stride, nullptr)) {
    *error = std::string("PNG encoding failed: ") + info.message;
    png_image_free(&info);
    return false;
  }
  png->resize(size);
  if (!png_image_write_to_memory(&info, png->data(), &size, 0, image.pixels.data(), stride,
                                 nullptr)) {
    *error = std::string("PNG encoding failed: ") + info.message;
    png_image_free(&info);
    return false;
  }
  png->resize(size);
  return true;
}

}  // namespace plovix_replay
