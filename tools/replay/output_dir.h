// The output folder. Every file is written under a temporary name and renamed only when the whole
// run succeeded, so a failed run leaves no half-written output behind.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace plovix_replay {

class OutputDir {
 public:
  OutputDir() = default;
  ~OutputDir();
  OutputDir(const OutputDir&) = delete;
  OutputDir& operator=(const OutputDir&) = delete;

  // Creates dir (and missing parents) unless it exists.
  bool Prepare(const std::string& dir, std::string* error);
  // Opens the temporary file for name; the handle stays owned by this object.
  std::FILE* Create(const std::string& name, std::string* error);
  // Final path of name, for messages.
  std::string PathOf(const std::string& name) const;
  // Closes every file, checking for write errors, then gives each its final name.
  bool Commit(std::string* error);
  // Closes and removes every temporary file, and the folder when this run created it and it is
  // left empty. Also what the destructor does without a Commit.
  void Abandon();

 private:
  struct Entry {
    std::string name;
    std::string temp;
    std::FILE* file;
  };
  std::string dir_;
  std::vector<std::string> createdDirs_;
  std::vector<Entry> entries_;
  bool committed_ = false;
};

}  // namespace plovix_replay
