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
  ASSERT_NE(out.Create("frames.csv", &error), nullptr) << error;
  EXPECT_FALSE(fs::exists(dir + "/frames.csv"));
  ASSERT_TRUE(out.Commit(&error)) << error;
  EXPECT_TRUE(fs::exists(dir + "/frames.csv"));
}

TEST(OutputDir, AFailedRunLeavesNothingItCreated) {
  const std::string parent = replay_test::TempPath("out");
  const std::string dir = parent + "/nested";
  for (bool existing : {false, true}) {
    SCOPED_TRACE(existing);
    if (existing) {
      fs::create_directories(dir);
      std::ofstream(dir + "/keep.txt") << "x";
    }
    {
      OutputDir out;
      std::string error;
      ASSERT_TRUE(out.Prepare(dir, &error));
      ASSERT_NE(out.Create("report.html", &error), nullptr);
    }  // destroyed without Commit
    // A folder it made goes; an existing one keeps just what it held before.
    EXPECT_EQ(fs::exists(parent), existing);
    if (existing) {
      EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 1);
    }
  }
}

}  // namespace
}  // namespace plovix_replay
