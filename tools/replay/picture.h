// A frame as the tool handles it between reading and feeding: planar 8-bit 4:2:0 (I420), chroma
// planes of ((width + 1) / 2) x ((height + 1) / 2) samples, the layout Y4M files carry.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace plovix_replay {

struct Picture {
  int width = 0;
  int height = 0;
  std::vector<uint8_t> y;
  std::vector<uint8_t> u;
  std::vector<uint8_t> v;

  int ChromaWidth() const { return (width + 1) / 2; }
  int ChromaHeight() const { return (height + 1) / 2; }
};

// Sizes the planes for width x height (contents unspecified when the size is unchanged).
void ResizePicture(Picture* p, int width, int height);

size_t PlanarFrameBytes(int width, int height);
// The engine's semi-planar layout: width x height luma, then height / 2 rows of width bytes.
size_t SemiPlanarFrameBytes(int width, int height);

enum class ChromaOrder { kVU, kUV };  // NV21 stores V first, NV12 U first.

// Packs p into the engine's layout: luma rows and chroma rows both p.width bytes apart. The chroma
// buffer gets two spare zero bytes so that an odd width's last pair stays inside it.
void PackSemiPlanar(const Picture& p, ChromaOrder order, std::vector<uint8_t>* luma,
                    std::vector<uint8_t>* chroma);

// The reverse, for raw preview dumps: data holds SemiPlanarFrameBytes(width, height) bytes.
void UnpackSemiPlanar(const uint8_t* data, int width, int height, ChromaOrder order, Picture* p);

}  // namespace plovix_replay
