#include "picture.h"

#include <algorithm>

namespace plovix_replay {

void ResizePicture(Picture* p, int width, int height) {
  p->width = width;
  p->height = height;
  p->y.resize(static_cast<size_t>(width) * height);
  const size_t chroma = static_cast<size_t>(p->ChromaWidth()) * p->ChromaHeight();
  p->u.resize(chroma);
  p->v.resize(chroma);
}

size_t PlanarFrameBytes(int width, int height) {
  const size_t chroma = static_cast<size_t>((width + 1) / 2) * ((height + 1) / 2);
  return static_cast<size_t>(width) * height + 2 * chroma;
}

size_t SemiPlanarFrameBytes(int width, int height) {
  return static_cast<size_t>(width) * height + static_cast<size_t>(width) * (height / 2);
}

void PackSemiPlanar(const Picture& p, ChromaOrder order, std::vector<uint8_t>* luma,
                    std::vector<uint8_t>* chroma) {
  luma->assign(p.y.begin(), p.y.end());
  const int rows = p.height / 2;
  const int pairs = (p.width + 1) / 2;
  const int cw = p.ChromaWidth();
  chroma->assign(static_cast<size_t>(p.width) * rows + 2, 0);
  const std::vector<uint8_t>& first = order == ChromaOrder::kVU ? p.v : p.u;
  const std::vector<uint8_t>& second = order == ChromaOrder::kVU ? p.u : p.v;
  for (int r = 0; r < rows; ++r) {
    uint8_t* out = chroma->data() + static_cast<size_t>(r) * p.width;
    const size_t in = static_cast<size_t>(r) * cw;
    for (int k = 0; k < pairs; ++k) {
      out[2 * k] = first[in + k];
      out[2 * k + 1] = second[in + k];
    }
  }
}

void UnpackSemiPlanar(const uint8_t* data, int width, int height, ChromaOrder order, Picture* p) {
  ResizePicture(p, width, height);
  std::copy(data, data + static_cast<size_t>(width) * height, p->y.begin());
  const uint8_t* chroma = data + static_cast<size_t>(width) * height;
  const int rows = height / 2;
  const int cw = p->ChromaWidth();
  std::vector<uint8_t>& first = order == ChromaOrder::kVU ? p->v : p->u;
  std::vector<uint8_t>& second = order == ChromaOrder::kVU ? p->u : p->v;
  for (int r = 0; r < p->ChromaHeight(); ++r) {
    // An odd height has one chroma row more than a semi-planar dump holds: repeat the last one.
    const uint8_t* in = chroma + static_cast<size_t>(std::min(r, std::max(rows - 1, 0))) * width;
    for (int k = 0; k < cw; ++k) {
      const bool inside = rows > 0 && 2 * k + 1 < width;
      first[static_cast<size_t>(r) * cw + k] = inside ? in[2 * k] : 128;
      second[static_cast<size_t>(r) * cw + k] = inside ? in[2 * k + 1] : 128;
    }
  }
}

}  // namespace plovix_replay
