// Strict number and word parsing shared by the option, script and header parsers: a value parses
// only when all of it is a number, so "12x" or "1.5.2" are rejected instead of half-read.
#pragma once

#include <string>
#include <vector>

namespace plovix_replay {

bool ParseInt(const std::string& text, int* out);
bool ParseLong(const std::string& text, long* out);
// A finite decimal number.
bool ParseDouble(const std::string& text, double* out);
// Single precision parsed directly (strtof), so "1.1" is the float a host would pass, not a
// double rounded twice.
bool ParseFloat(const std::string& text, float* out);
// "1920x1080": both positive.
bool ParseSize(const std::string& text, int* width, int* height);
// Splits on runs of spaces and tabs.
std::vector<std::string> SplitWords(const std::string& line);
// Splits on every occurrence of sep (empty fields kept).
std::vector<std::string> Split(const std::string& text, char sep);

}  // namespace plovix_replay
