#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "contract/posix/surroundings.hpp"
#include "contract/shared/failure_number.hpp"
#include "contract/shared/scratch.hpp"
#include "platform/posix/files.hpp"

namespace kestra {
namespace {

class PosixLogTest : public ::testing::Test {
 protected:
  std::int32_t FailureOf(const std::string& file) {
    return FailureNumber([&] { log_.Append(file, "x"); });
  }

  ScratchDirectory scratch_;
  PosixLog log_;
};

TEST_F(PosixLogTest, MayBeWrittenByTheUsersGroupAsTheMaskAllows) {
  const mode_t before = ::umask(0002);
  log_.Append(".\\fiscal.log", "x");
  ::umask(before);
  struct stat about = {};
  ASSERT_EQ(::stat("fiscal.log", &about), 0);
  EXPECT_EQ(about.st_mode & 0777u, 0664u);
}

TEST_F(PosixLogTest, AFullDiskIsAFailure) {
  std::filesystem::create_symlink("/dev/full", "fiscal.log");
  EXPECT_EQ(FailureOf(".\\fiscal.log"), 61);
}

TEST_F(PosixLogTest, APipeThatNobodyReadsIsAFailureAndStopsNobody) {
  ASSERT_EQ(::mkfifo("fiscal.log", 0600), 0);
  EXPECT_EQ(FailureOf(".\\fiscal.log"), 75);
}

TEST_F(PosixLogTest, AReadOnlyFileIsAFailure) {
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
