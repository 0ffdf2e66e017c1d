#include "raw_reader.h"

#include <sys/stat.h>

namespace plovix_replay {

std::unique_ptr<RawReader> RawReader::Open(std::FILE* file, bool seekable, int width, int height,
                                           ChromaOrder order, FrameRate rate, std::string* error) {
  std::unique_ptr<RawReader> reader(new RawReader(file, width, height, order, rate));
  reader->buffer_.resize(SemiPlanarFrameBytes(width, height));
  struct stat st;
  if (!seekable || fstat(fileno(file), &st) != 0 || !S_ISREG(st.st_mode)) return reader;
  const long long frameBytes = static_cast<long long>(reader->buffer_.size());
  const long long size = st.st_size;
  if (size == 0) {
    *error = "empty file";
    return nullptr;
  }
  if (size % frameBytes != 0) {
    *error = "size " + std::to_string(size) + " bytes is not a whole number of " +
             std::to_string(width) + "x" + std::to_string(height) + " frames of " +
             std::to_string(frameBytes) + " bytes (" + std::to_string(size % frameBytes) +
             " bytes left over after " + std::to_string(size / frameBytes) + " frames)";
    return nullptr;
  }
  reader->frameCount_ = static_cast<long>(size / frameBytes);
  return reader;
}

RawReader::~RawReader() {
  if (file_ != nullptr && file_ != stdin) std::fclose(file_);
}

ReadStatus RawReader::Read(Picture* p, std::string* error) {
  const size_t got = std::fread(buffer_.data(), 1, buffer_.size(), file_);
  if (got == 0 && std::feof(file_)) return ReadStatus::kEnd;
  if (got != buffer_.size()) {
    *error = std::ferror(file_)
                 ? "read error in frame " + std::to_string(framesRead_)
                 : "frame " + std::to_string(framesRead_) + " is truncated (" +
                       std::to_string(got) + " of " + std::to_string(buffer_.size()) + " bytes)";
    return ReadStatus::kError;
  }
  UnpackSemiPlanar(buffer_.data(), width_, height_, order_, p);
  ++framesRead_;
  return ReadStatus::kFrame;
}

}  // namespace plovix_replay
