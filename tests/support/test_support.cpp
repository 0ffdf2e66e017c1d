#include "support/test_support.h"

#include <cstdlib>
#include <cstring>

namespace plovix_test {

LogCapture::LogCapture() { plovix_set_log_callback(&LogCapture::Sink, this); }

LogCapture::~LogCapture() { plovix_set_log_callback(nullptr, nullptr); }

void LogCapture::Sink(int priority, const char* tag, const char* text, void* user) {
  static_cast<LogCapture*>(user)->lines_.push_back({priority, tag, text});
}

int LogCapture::Count(const std::string& text) const {
  int n = 0;
  for (const auto& l : lines_) n += (l.text == text) ? 1 : 0;
  return n;
}

int LogCapture::CountPrefix(const std::string& prefix) const {
  int n = 0;
  for (const auto& l : lines_) n += (l.text.compare(0, prefix.size(), prefix) == 0) ? 1 : 0;
  return n;
}

std::vector<std::string> LogCapture::Tagged() const {
  std::vector<std::string> out;
  for (const auto& l : lines_) out.push_back(std::to_string(l.priority) + " " + l.text);
  return out;
}

Engine::Engine() : handle_(create_plovix_handle()) { init_plovix(handle_); }

Engine::~Engine() {
  deinit_plovix(handle_);
  destroy_plovix_handle(handle_);
}

void ResetTrackerGlobals() {
  std::free(pObj_window);
  std::free(pObj_Seg_window);
  pObj_window = pObj_Seg_window = nullptr;
  obj_W = obj_H = obj_sW = obj_sH = 0;
  gMst = CMeanShiftTracker{};
  m_nOT = Valid_cnt = NCC_cnt = LostCount = 0;
  Valid_flg = false;
  score_normcrosscorr = 100;
  g_nDirMCount = g_nDirSCount = g_nLastMoveEvent = g_nLastSizeEvent = 0;
  g_nRectIndex = g_nRectStack = -1;
  g_nMovementStack = 0;
  g_MAX_OBJ_SIZE = 100;
  g_MIN_OBJ_SIZE = 20;
  g_MIN_OBJ_SIZE_HALF = 10;
  g_FF_SEARCH_OFFSET = 5;
}

Weights& Weights::Fill(int left, int top, int right, int bottom, uint8_t v, int n) {
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right && n > 0; ++x, --n) px[static_cast<size_t>(y) * w + x] = v;
  }
  return *this;
}

WorkScene::WorkScene(int width, int height)
    : w(width),
      h(height),
      y(static_cast<size_t>(width) * height, 100),
      cbcr(static_cast<size_t>(width) * (height / 2 + 1), 128) {}

std::vector<uint8_t> WorkScene::Crop(int l, int t, int r, int b) const {
  std::vector<uint8_t> out;
  for (int yy = t; yy < b; ++yy) out.insert(out.end(), y.begin() + yy * w + l, y.begin() + yy * w + r);
  return out;
}

void SetObjectWeight(uint8_t weight) {
  for (auto& bin : gMst.histModel[WorkScene::kObjCb >> 3][WorkScene::kObjCr >> 3]) bin = weight;
}

Frame MakeUniformFrame(int width, int height, uint8_t y, uint8_t c0, uint8_t c1) {
  Frame f;
  f.width = width;
  f.height = height;
  f.y.assign(static_cast<size_t>(width) * height, y);
  f.uv.resize(static_cast<size_t>(width) * (height / 2));
  for (size_t i = 0; i + 1 < f.uv.size(); i += 2) {
    f.uv[i] = c0;
    f.uv[i + 1] = c1;
  }
  return f;
}

void PaintRect(Frame* f, int left, int top, int right, int bottom, uint8_t y, uint8_t c0, uint8_t c1) {
  for (int r = top; r < bottom; ++r) {
    if (r < 0 || r >= f->height) continue;
    for (int c = left; c < right; ++c) {
      if (c < 0 || c >= f->width) continue;
      f->y[static_cast<size_t>(r) * f->width + c] = y;
      if (r / 2 < f->height / 2) {
        size_t i = static_cast<size_t>(r / 2) * f->width + (c & ~1);
        if (i + 1 < f->uv.size()) {
          f->uv[i] = c0;
          f->uv[i + 1] = c1;
        }
      }
    }
  }
}

void PaintDisc(Frame* f, int cx, int cy, int radius, uint8_t y, uint8_t c0, uint8_t c1) {
  const int r2 = radius * radius;
  for (int r = cy - radius; r <= cy + radius; ++r) {
    if (r < 0 || r >= f->height) continue;
    for (int c = cx - radius; c <= cx + radius; ++c) {
      if (c < 0 || c >= f->width) continue;
      if ((r - cy) * (r - cy) + (c - cx) * (c - cx) > r2) continue;
      f->y[static_cast<size_t>(r) * f->width + c] = y;
      if (r / 2 < f->height / 2) {
        size_t i = static_cast<size_t>(r / 2) * f->width + (c & ~1);
        if (i + 1 < f->uv.size()) {
          f->uv[i] = c0;
          f->uv[i + 1] = c1;
        }
      }
    }
  }
}

Frame MakeTexturedFrame(int width, int height, uint32_t seed) {
  Frame f = MakeUniformFrame(width, height, 128, 128, 128);
  uint32_t s = seed * 2654435761u + 12345u;
  for (int r = 0; r < height; ++r) {
    for (int c = 0; c < width; ++c) {
      s = s * 1664525u + 1013904223u;
      const int noise = static_cast<int>((s >> 24) & 15) - 8;
      const int base = 96 + ((r / 16 + c / 16) & 1) * 24 + (c * 32) / (width > 0 ? width : 1);
      f.y[static_cast<size_t>(r) * width + c] = static_cast<uint8_t>(base + noise);
    }
  }
  return f;
}

PlovixStruct MakeRecord(Frame* f, int format) {
  PlovixStruct rec;
  std::memset(&rec, 0, sizeof(rec));
  rec.pY = f->y.data();
  rec.pUV = f->uv.data();
  rec.nFormat = format;
  rec.nWidth = f->width;
  rec.nHeight = f->height;
  rec.nStride = f->width;
  rec.nSensorType = -1;
  rec.fZoomRatio = 1.0f;
  return rec;
}

}  // namespace plovix_test
