#include "output_dir.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace plovix_replay {

namespace fs = std::filesystem;

OutputDir::~OutputDir() {
  if (!committed_) Abandon();
}

bool OutputDir::Prepare(const std::string& dir, std::string* error) {
  dir_ = dir;
  std::error_code ec;
  if (fs::is_directory(dir, ec)) return true;
  if (fs::exists(dir, ec)) {
    *error = dir + ": exists and is not a folder";
    return false;
  }
  // Remember each level this run creates, deepest last, so Abandon can take them away again.
  std::vector<std::string> missing;
  for (fs::path p = fs::path(dir); !p.empty() && !fs::exists(p, ec); p = p.parent_path()) {
    missing.insert(missing.begin(), p.string());
    if (p == p.parent_path()) break;
  }
  for (const std::string& level : missing) {
    if (!fs::create_directory(level, ec) && ec) {
      *error = level + ": cannot create folder: " + ec.message();
      return false;
    }
    createdDirs_.push_back(level);
  }
  return true;
}

std::string OutputDir::PathOf(const std::string& name) const {
  return (fs::path(dir_) / name).string();
}

std::FILE* OutputDir::Create(const std::string& name, std::string* error) {
  const std::string temp = (fs::path(dir_) / ("." + name + ".partial")).string();
  std::FILE* f = std::fopen(temp.c_str(), "wb");
  if (f == nullptr) {
    *error = PathOf(name) + ": cannot create: " + std::strerror(errno);
    return nullptr;
  }
  entries_.push_back({name, temp, f});
  return f;
}

bool OutputDir::Commit(std::string* error) {
  for (Entry& e : entries_) {
    const bool failed = std::ferror(e.file) != 0;
    const bool closeFailed = std::fclose(e.file) != 0;
    e.file = nullptr;
    if (failed || closeFailed) {
      *error = PathOf(e.name) + ": write failed: " + std::strerror(errno);
      Abandon();
      return false;
    }
  }
  for (const Entry& e : entries_) {
    std::error_code ec;
    fs::rename(e.temp, PathOf(e.name), ec);
    if (ec) {
      *error = PathOf(e.name) + ": cannot rename from " + e.temp + ": " + ec.message();
      Abandon();
      return false;
    }
  }
  entries_.clear();
  committed_ = true;
  return true;
}

void OutputDir::Abandon() {
  std::error_code ec;
  for (Entry& e : entries_) {
    if (e.file != nullptr) std::fclose(e.file);
    fs::remove(e.temp, ec);
  }
  entries_.clear();
  for (auto it = createdDirs_.rbegin(); it != createdDirs_.rend(); ++it) {
    if (fs::is_empty(*it, ec)) fs::remove(*it, ec);
  }
  createdDirs_.clear();
}

}  // namespace plovix_replay
