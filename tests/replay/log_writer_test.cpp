#include "log_writer.h"

#include "gtest/gtest.h"

namespace plovix_replay {
namespace {

TEST(LogWriter, OneLinePerMessageWithFrameAndPriority) {
  EXPECT_EQ(FormatLogLine(0, {6, "two\nlines\r"}), "0 6 two\\nlines\n");
}

}  // namespace
}  // namespace plovix_replay
