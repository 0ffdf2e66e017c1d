#include "peers/intake.h"

#include <cmath>

#include <opencv2/imgproc.hpp>

namespace plovix_bench {
namespace {

cv::Mat LumaPlane(const Nv21Frame& f) {
  return cv::Mat(f.height, f.width, CV_8UC1, const_cast<uint8_t*>(f.y()));
}

}  // namespace

void ShrinkNv21(const Nv21Frame& f, const FrameSize& size, cv::Mat* nv21) {
  const int w = size.workWidth;
  const int h = size.workHeight;
  nv21->create(h * 3 / 2, w, CV_8UC1);
  cv::Mat luma = nv21->rowRange(0, h);
  cv::resize(LumaPlane(f), luma, luma.size(), 0, 0, cv::INTER_NEAREST);
  const cv::Mat pairs(f.height / 2, f.width / 2, CV_8UC2, const_cast<uint8_t*>(f.vu()));
  cv::Mat smallPairs(h / 2, w / 2, CV_8UC2, nv21->ptr(h));
  cv::resize(pairs, smallPairs, smallPairs.size(), 0, 0, cv::INTER_NEAREST);
}

void ShrinkLuma(const Nv21Frame& f, const FrameSize& size, cv::Mat* gray) {
  gray->create(size.workHeight, size.workWidth, CV_8UC1);
  cv::resize(LumaPlane(f), *gray, gray->size(), 0, 0, cv::INTER_NEAREST);
}

void ShrinkToBgr(const Nv21Frame& f, const FrameSize& size, cv::Mat* nv21, cv::Mat* bgr) {
  ShrinkNv21(f, size, nv21);
  cv::cvtColor(*nv21, *bgr, cv::COLOR_YUV2BGR_NV21);
}

cv::Rect DiscBox(const FrameSet& frames, int i) {
  const Disc d = frames.scene().DiscAt(i);
  const double scale = static_cast<double>(frames.size().workWidth) / frames.size().width;
  const int left = static_cast<int>(std::floor((d.x - d.r) * scale));
  const int top = static_cast<int>(std::floor((d.y - d.r) * scale));
  const int side = static_cast<int>(std::ceil(2.0 * d.r * scale));
  return {left, top, side, side};
}

}  // namespace plovix_bench
