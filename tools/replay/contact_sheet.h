// contact.png: thumbnails of every Nth frame with the boxes drawn, in a grid, for a quick look at
// a whole run.
#pragma once

#include <vector>

#include "png_writer.h"
#include "session.h"

namespace plovix_replay {

class ContactSheet : public FrameObserver {
 public:
  ContactSheet(int every, int thumbWidth);
  bool OnFrame(const FrameResult& result, const Picture& fed, std::string* error) override;
  size_t ThumbnailCount() const { return thumbs_.size(); }
  // The grid, row by row in frame order. Needs at least one thumbnail.
  RgbImage Compose() const;

 private:
  int every_;
  int thumbWidth_;
  int thumbHeight_ = 0;
  std::vector<RgbImage> thumbs_;
  Picture marked_;
  Picture small_;
};

}  // namespace plovix_replay
