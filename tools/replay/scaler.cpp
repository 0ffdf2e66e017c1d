#include "scaler.h"

#include <algorithm>
#include <vector>

namespace plovix_replay {
namespace {

void ScalePlane(const std::vector<uint8_t>& src, int srcW, int srcH, std::vector<uint8_t>* dst,
                int dstW, int dstH) {
  std::vector<int> column(dstW);
  for (int x = 0; x < dstW; ++x)
    column[x] = static_cast<int>(static_cast<long long>(x) * srcW / dstW);
  for (int y = 0; y < dstH; ++y) {
    const uint8_t* in =
        src.data() + static_cast<size_t>(static_cast<long long>(y) * srcH / dstH) * srcW;
    uint8_t* out = dst->data() + static_cast<size_t>(y) * dstW;
    for (int x = 0; x < dstW; ++x) out[x] = in[column[x]];
  }
}

void AveragePlane(const std::vector<uint8_t>& src, int srcW, int srcH, std::vector<uint8_t>* dst,
                  int dstW, int dstH) {
  for (int y = 0; y < dstH; ++y) {
    const int y0 = static_cast<int>(static_cast<long long>(y) * srcH / dstH);
    const int y1 = std::max(y0 + 1, static_cast<int>(static_cast<long long>(y + 1) * srcH / dstH));
    for (int x = 0; x < dstW; ++x) {
      const int x0 = static_cast<int>(static_cast<long long>(x) * srcW / dstW);
      const int x1 =
          std::max(x0 + 1, static_cast<int>(static_cast<long long>(x + 1) * srcW / dstW));
      long sum = 0;
      for (int sy = y0; sy < y1; ++sy) {
        const uint8_t* row = src.data() + static_cast<size_t>(sy) * srcW;
        for (int sx = x0; sx < x1; ++sx) sum += row[sx];
      }
      const long count = static_cast<long>(y1 - y0) * (x1 - x0);
      (*dst)[static_cast<size_t>(y) * dstW + x] = static_cast<uint8_t>((sum + count / 2) / count);
    }
  }
}

}  // namespace

void ScaleArea(const Picture& src, int width, int height, Picture* dst) {
  ResizePicture(dst, width, height);
  AveragePlane(src.y, src.width, src.height, &dst->y, width, height);
  AveragePlane(src.u, src.ChromaWidth(), src.ChromaHeight(), &dst->u, dst->ChromaWidth(),
               dst->ChromaHeight());
  AveragePlane(src.v, src.ChromaWidth(), src.ChromaHeight(), &dst->v, dst->ChromaWidth(),
               dst->ChromaHeight());
}

void ScaleNearest(const Picture& src, int width, int height, Picture* dst) {
  ResizePicture(dst, width, height);
  ScalePlane(src.y, src.width, src.height, &dst->y, width, height);
  ScalePlane(src.u, src.ChromaWidth(), src.ChromaHeight(), &dst->u, dst->ChromaWidth(),
             dst->ChromaHeight());
  ScalePlane(src.v, src.ChromaWidth(), src.ChromaHeight(), &dst->v, dst->ChromaWidth(),
             dst->ChromaHeight());
}

}  // namespace plovix_replay
