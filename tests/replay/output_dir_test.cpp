#include "output_dir.h"

#include <filesystem>
#include <fstream>

#include "replay_test_util.h"

namespace plovix_replay {
namespace {

namespace fs = std::filesystem;

TEST(OutputDir, FilesAppearUnderTheirNamesOnlyOnCommit) {
  const std::string dir = replay_test::TempPath("out") + "/nested";
  OutputDir out;
  std::string error;
  ASSERT_TRUE(out.Prepare(dir, &error)) << error;
  std::FILE* f = out.Create("frames.csv", &error);
  ASSERT_NE(f, nullptr) << error;
  std::fputs("frame,ret\n", f);
  EXPECT_FALSE(fs::exists(dir + "/frames.csv"));
  ASSERT_TRUE(out.Commit(&error)) << error;
  std::ifstream in(dir + "/frames.csv");
  std::string line;
  std::getline(in, line);
  EXPECT_EQ(line, "frame,ret");
  EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 1);
}

TEST(OutputDir, AFailedRunLeavesNothingItCreated) {
  const std::string parent = replay_test::TempPath("out");
  const std::string dir = parent + "/nested";
  {
    OutputDir out;
    std::string error;
    ASSERT_TRUE(out.Prepare(dir, &error));
    ASSERT_NE(out.Create("report.html", &error), nullptr);
  }  // destroyed without Commit
  EXPECT_FALSE(fs::exists(parent));

  // An existing folder stays, with what it held before.
  fs::create_directories(dir);
  std::ofstream(dir + "/keep.txt") << "x";
  {
    OutputDir out;
    std::string error;
    ASSERT_TRUE(out.Prepare(dir, &error));
    ASSERT_NE(out.Create("frames.csv", &error), nullptr);
    out.Abandon();
  }
  EXPECT_TRUE(fs::exists(dir + "/keep.txt"));
  EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 1);
}

TEST(OutputDir, RefusesAFileWhereTheFolderShouldBe) {
  const std::string path = replay_test::WriteFile("plain", "x");
  OutputDir out;
  std::string error;
  EXPECT_FALSE(out.Prepare(path, &error));
  EXPECT_EQ(error, path + ": exists and is not a folder");
}

}  // namespace
}  // namespace plovix_replay
