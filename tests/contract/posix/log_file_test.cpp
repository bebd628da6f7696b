#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "contract/posix/scratch.hpp"
#include "contract/shared/failure_number.hpp"
#include "platform/posix/log_file.hpp"

namespace kestra {
namespace {

class LogFileTest : public ::testing::Test {
 protected:
  std::int32_t FailureOf(const std::string& file) {
    return FailureNumber([&] { log_.Append(file, "x"); });
  }

  ScratchDirectory scratch_;
  PosixLog log_;
};

TEST_F(LogFileTest, IsCreatedWhenMissing) {
  log_.Append(".\\fiscal.log", "uno\r\n");
  EXPECT_EQ(ReadFile("fiscal.log"), "uno\r\n");
}

TEST_F(LogFileTest, GrowsAtItsEnd) {
  WriteFile("fiscal.log", "viejo\r\n");
  log_.Append(".\\fiscal.log", "uno\r\n");
  log_.Append(".\\fiscal.log", "dos\r\n");
  EXPECT_EQ(ReadFile("fiscal.log"), "viejo\r\nuno\r\ndos\r\n");
}

TEST_F(LogFileTest, KeepsEveryByteAsItIs) {
  const std::string bytes("\x02\x00\x1C\xF3\r\n", 6);
  log_.Append(".\\fiscal.log", bytes);
  EXPECT_EQ(ReadFile("fiscal.log"), bytes);
}

TEST_F(LogFileTest, MayBeDeletedBetweenTwoLines) {
  log_.Append(".\\fiscal.log", "uno");
  std::filesystem::remove("fiscal.log");
  log_.Append(".\\fiscal.log", "dos");
  EXPECT_EQ(ReadFile("fiscal.log"), "dos");
}

TEST_F(LogFileTest, MayBeWrittenByTheUsersGroupAsTheMaskAllows) {
  const mode_t before = ::umask(0002);
  log_.Append(".\\fiscal.log", "x");
  ::umask(before);
  struct stat about = {};
  ASSERT_EQ(::stat("fiscal.log", &about), 0);
  EXPECT_EQ(about.st_mode & 0777u, 0664u);
}

TEST_F(LogFileTest, AMissingDirectoryIsAFailure) {
  EXPECT_EQ(FailureOf(".\\no\\fiscal.log"), 76);
}

TEST_F(LogFileTest, ADirectoryOfThatNameIsAFailure) {
  std::filesystem::create_directory("fiscal.log");
  EXPECT_EQ(FailureOf(".\\fiscal.log"), 75);
}

TEST_F(LogFileTest, AFullDiskIsAFailure) {
  std::filesystem::create_symlink("/dev/full", "fiscal.log");
  EXPECT_EQ(FailureOf(".\\fiscal.log"), 61);
}

TEST_F(LogFileTest, APipeThatNobodyReadsIsAFailureAndStopsNobody) {
  ASSERT_EQ(::mkfifo("fiscal.log", 0600), 0);
  EXPECT_EQ(FailureOf(".\\fiscal.log"), 75);
}

TEST_F(LogFileTest, AReadOnlyFileIsAFailure) {
  WriteFile("fiscal.log", "viejo");
  ASSERT_EQ(::chmod("fiscal.log", 0444), 0);
  ASSERT_EQ(::chmod(scratch_.Path().c_str(), 0755), 0);
  const OrdinaryUser user;
  ASSERT_TRUE(user);
  EXPECT_EQ(FailureOf(".\\fiscal.log"), 70);
  EXPECT_EQ(ReadFile("fiscal.log"), "viejo");
}

}  // namespace
}  // namespace kestra
