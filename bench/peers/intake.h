// How the OpenCV peers take in a preview frame: the NV21 frame is first shrunk to the working
// size by nearest-neighbour sampling of its luma plane and of its V,U pair plane (the same
// samples the engine's decimation takes), then converted to what each peer works on.
#pragma once

#include <opencv2/core.hpp>

#include "support/frame_set.h"

namespace plovix_bench {

// The shrunk frame as an OpenCV NV21 image: workHeight * 3 / 2 rows of workWidth bytes.
void ShrinkNv21(const Nv21Frame& f, const FrameSize& size, cv::Mat* nv21);

// The shrunk frame's luma alone.
void ShrinkLuma(const Nv21Frame& f, const FrameSize& size, cv::Mat* gray);

// The shrunk frame as BGR; nv21 is scratch.
void ShrinkToBgr(const Nv21Frame& f, const FrameSize& size, cv::Mat* nv21, cv::Mat* bgr);

// The disc's bounding box in working pixels.
cv::Rect DiscBox(const FrameSet& frames, int i);

}  // namespace plovix_bench
