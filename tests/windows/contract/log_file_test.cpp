#include <gtest/gtest.h>
#include <windows.h>

#include "contract/shared/failure_number.hpp"
#include "platform/windows/handle.hpp"
#include "platform/windows/log_file.hpp"
#include "scratch.hpp"

namespace kestra {
namespace {

class LogFileTest : public ::testing::Test {
 protected:
  std::int32_t FailureOf(const std::string& file) {
    return FailureNumber([&] { log_.Append(file, "x"); });
  }

  ScratchDirectory scratch_;
  WindowsLog log_;
};

TEST_F(LogFileTest, IsCreatedWhenMissing) {
  log_.Append(".\\fiscal.log", "uno\r\n");
  EXPECT_EQ(ReadFileText("fiscal.log"), "uno\r\n");
}

TEST_F(LogFileTest, GrowsAtItsEnd) {
  WriteFileText("fiscal.log", "viejo\r\n");
  log_.Append(".\\fiscal.log", "uno\r\n");
  log_.Append(".\\fiscal.log", "dos\r\n");
  EXPECT_EQ(ReadFileText("fiscal.log"), "viejo\r\nuno\r\ndos\r\n");
}

TEST_F(LogFileTest, KeepsEveryByteAsItIs) {
  const std::string bytes("\x02\x00\x1C\xF3\r\n", 6);
  log_.Append(".\\fiscal.log", bytes);
  EXPECT_EQ(ReadFileText("fiscal.log"), bytes);
}

TEST_F(LogFileTest, MayBeReadByOthersMeanwhile) {
  WriteFileText("fiscal.log", "uno");
  const Handle reader(::CreateFileA("fiscal.log", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(static_cast<bool>(reader));
  log_.Append(".\\fiscal.log", "dos");
  EXPECT_EQ(ReadFileText("fiscal.log"), "unodos");
}

TEST_F(LogFileTest, AMissingDirectoryIsAFailure) {
  EXPECT_EQ(FailureOf(".\\no\\fiscal.log"), 76);
}

TEST_F(LogFileTest, ADirectoryOfThatNameIsAFailure) {
  ::CreateDirectoryA("fiscal.log", nullptr);
  EXPECT_EQ(FailureOf(".\\fiscal.log"), 70);
}

TEST_F(LogFileTest, AFileThatAnotherHasForItselfIsAFailure) {
  const Handle other(
      ::CreateFileA("fiscal.log", GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
  EXPECT_EQ(FailureOf(".\\fiscal.log"), 70);
}

}  // namespace
}  // namespace kestra
