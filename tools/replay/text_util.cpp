#include "text_util.h"

#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdlib>

namespace plovix_replay {

bool ParseLong(const std::string& text, long* out) {
  if (text.empty() || text.find_first_of(" \t\n") != std::string::npos) return false;
  errno = 0;
  char* end = nullptr;
  const long v = std::strtol(text.c_str(), &end, 10);
  if (errno != 0 || end != text.c_str() + text.size()) return false;
  *out = v;
  return true;
}

bool ParseInt(const std::string& text, int* out) {
  long v = 0;
  if (!ParseLong(text, &v) || v < INT_MIN || v > INT_MAX) return false;
  *out = static_cast<int>(v);
  return true;
}

bool ParseDouble(const std::string& text, double* out) {
  if (text.empty() || text.find_first_of(" \t\n") != std::string::npos) return false;
  errno = 0;
  char* end = nullptr;
  const double v = std::strtod(text.c_str(), &end);
  if (errno != 0 || end != text.c_str() + text.size() || !std::isfinite(v)) return false;
  *out = v;
  return true;
}

bool ParseFloat(const std::string& text, float* out) {
  if (text.empty() || text.find_first_of(" \t\n") != std::string::npos) return false;
  errno = 0;
  char* end = nullptr;
  const float v = std::strtof(text.c_str(), &end);
  if (errno != 0 || end != text.c_str() + text.size() || !std::isfinite(v)) return false;
  *out = v;
  return true;
}

bool ParseSize(const std::string& text, int* width, int* height) {
  const size_t x = text.find('x');
  if (x == std::string::npos) return false;
  int w = 0;
  int h = 0;
  if (!ParseInt(text.substr(0, x), &w) || !ParseInt(text.substr(x + 1), &h)) return false;
  if (w <= 0 || h <= 0) return false;
  *width = w;
  *height = h;
  return true;
}

std::vector<std::string> SplitWords(const std::string& line) {
  std::vector<std::string> words;
  size_t i = 0;
  while (i < line.size()) {
    while (i < line.size() && (line[i] == ' ' || line[i] == '\t' || line[i] == '\r')) ++i;
    size_t j = i;
    while (j < line.size() && line[j] != ' ' && line[j] != '\t' && line[j] != '\r') ++j;
    if (j > i) words.push_back(line.substr(i, j - i));
    i = j;
  }
  return words;
}

std::vector<std::string> Split(const std::string& text, char sep) {
  std::vector<std::string> parts;
  size_t start = 0;
  for (;;) {
    const size_t at = text.find(sep, start);
    parts.push_back(text.substr(start, at == std::string::npos ? std::string::npos : at - start));
    if (at == std::string::npos) return parts;
    start = at + 1;
  }
}

}  // namespace plovix_replay
