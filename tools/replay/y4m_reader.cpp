#include "y4m_reader.h"

#include <sys/stat.h>

#include "text_util.h"

namespace plovix_replay {
namespace {

constexpr char kSignature[] = "YUV4MPEG2";
constexpr size_t kMaxHeaderLine = 4096;
constexpr size_t kMaxMarkerLine = 1024;
constexpr int kMaxDimension = 16384;

enum class LineStatus { kLine, kEnd, kTooLong, kUnterminated };

// Reads up to and without the next '\n'. kEnd only when the file ends before the first byte.
LineStatus ReadLine(std::FILE* f, size_t maxLength, std::string* line) {
  line->clear();
  for (;;) {
    const int c = std::getc(f);
    if (c == EOF) return line->empty() ? LineStatus::kEnd : LineStatus::kUnterminated;
    if (c == '\n') return LineStatus::kLine;
    if (line->size() >= maxLength) return LineStatus::kTooLong;
    line->push_back(static_cast<char>(c));
  }
}

bool ParseRatio(const std::string& text, FrameRate* rate) {
  const size_t colon = text.find(':');
  if (colon == std::string::npos) return false;
  int num = 0;
  int den = 0;
  if (!ParseInt(text.substr(0, colon), &num) || !ParseInt(text.substr(colon + 1), &den)) {
    return false;
  }
  if (num <= 0 || den <= 0) return false;
  rate->num = num;
  rate->den = den;
  return true;
}

bool IsSupportedColourSpace(const std::string& c) {
  return c == "420" || c == "420jpeg" || c == "420paldv" || c == "420mpeg2";
}

bool ParseDimension(const std::string& value, char tag, int* out, std::string* error) {
  if (!ParseInt(value, out) || *out <= 0 || *out > kMaxDimension) {
    *error = std::string("bad Y4M header: invalid ") + (tag == 'W' ? "width" : "height") + " '" +
             value + "'";
    return false;
  }
  return true;
}

}  // namespace

bool ParseY4mHeader(const std::string& line, Y4mHeader* header, std::string* error) {
  Y4mHeader h;
  for (const std::string& token : SplitWords(line)) {
    const char tag = token[0];
    const std::string value = token.substr(1);
    if (tag == 'W' || tag == 'H') {
      if (!ParseDimension(value, tag, tag == 'W' ? &h.width : &h.height, error)) return false;
    } else if (tag == 'F') {
      if (!ParseRatio(value, &h.rate)) {
        *error = "bad Y4M header: invalid frame rate '" + value + "'";
        return false;
      }
    } else if (tag == 'C' && !IsSupportedColourSpace(value)) {
      *error = "unsupported Y4M colour space '" + value +
               "' (need 8-bit 4:2:0: convert with -pix_fmt yuv420p)";
      return false;
    }
    // Interlacing (I), aspect (A), extensions (X) and unknown tags do not change the frame layout.
  }
  if (h.width == 0 || h.height == 0) {
    *error = "bad Y4M header: missing width or height";
    return false;
  }
  *header = h;
  return true;
}

std::unique_ptr<Y4mReader> Y4mReader::Open(std::FILE* file, bool seekable, std::string* error) {
  std::unique_ptr<Y4mReader> reader(new Y4mReader(file, Y4mHeader()));
  std::string line;
  const LineStatus status = ReadLine(file, kMaxHeaderLine, &line);
  if (status == LineStatus::kEnd) {
    *error = "empty file";
    return nullptr;
  }
  if (line.compare(0, sizeof(kSignature) - 1, kSignature) != 0) {
    *error = "not a Y4M file (no YUV4MPEG2 signature)";
    return nullptr;
  }
  if (status != LineStatus::kLine) {
    *error = "bad Y4M header: header line is not terminated";
    return nullptr;
  }
  if (!ParseY4mHeader(line.substr(sizeof(kSignature) - 1), &reader->header_, error)) {
    return nullptr;
  }
  if (seekable && !reader->CountFrames(error)) return nullptr;
  return reader;
}

Y4mReader::~Y4mReader() {
  if (file_ != nullptr && file_ != stdin) std::fclose(file_);
}

ReadStatus Y4mReader::ReadMarker(std::string* error) {
  std::string line;
  const LineStatus status = ReadLine(file_, kMaxMarkerLine, &line);
  if (status == LineStatus::kEnd) return ReadStatus::kEnd;
  const std::string where = "frame " + std::to_string(framesRead_);
  if (line.compare(0, 5, "FRAME") != 0 || (line.size() > 5 && line[5] != ' ')) {
    *error = where + ": expected a FRAME marker";
    return ReadStatus::kError;
  }
  if (status != LineStatus::kLine) {
    *error = where + " is truncated (the file ends inside its FRAME marker)";
    return ReadStatus::kError;
  }
  return ReadStatus::kFrame;
}

bool Y4mReader::CountFrames(std::string* error) {
  struct stat st;
  const off_t start = ftello(file_);
  if (start < 0 || fstat(fileno(file_), &st) != 0) return true;  // Not countable: read as a stream.
  const off_t frameBytes = static_cast<off_t>(PlanarFrameBytes(header_.width, header_.height));
  long count = 0;
  for (;;) {
    framesRead_ = count;
    const ReadStatus status = ReadMarker(error);
    if (status == ReadStatus::kEnd) break;
    if (status == ReadStatus::kError) return false;
    const off_t at = ftello(file_);
    if (at + frameBytes > st.st_size) {
      *error = "frame " + std::to_string(count) + " is truncated (" +
               std::to_string(st.st_size - at) + " of " + std::to_string(frameBytes) + " bytes)";
      return false;
    }
    if (fseeko(file_, frameBytes, SEEK_CUR) != 0) {
      *error = "cannot seek past frame " + std::to_string(count);
      return false;
    }
    ++count;
  }
  framesRead_ = 0;
  if (fseeko(file_, start, SEEK_SET) != 0) {
    *error = "cannot seek back to the first frame";
    return false;
  }
  frameCount_ = count;
  return true;
}

ReadStatus Y4mReader::Read(Picture* p, std::string* error) {
  const ReadStatus marker = ReadMarker(error);
  if (marker != ReadStatus::kFrame) return marker;
  ResizePicture(p, header_.width, header_.height);
  const size_t expected = PlanarFrameBytes(header_.width, header_.height);
  size_t got = std::fread(p->y.data(), 1, p->y.size(), file_);
  if (got == p->y.size()) got += std::fread(p->u.data(), 1, p->u.size(), file_);
  if (got == p->y.size() + p->u.size()) got += std::fread(p->v.data(), 1, p->v.size(), file_);
  if (got != expected) {
    *error = "frame " + std::to_string(framesRead_) + " is truncated (" + std::to_string(got) +
             " of " + std::to_string(expected) + " bytes)";
    return ReadStatus::kError;
  }
  ++framesRead_;
  return ReadStatus::kFrame;
}

}  // namespace plovix_replay
