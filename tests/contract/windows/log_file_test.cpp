#include <gtest/gtest.h>
#include <windows.h>

#include "contract/shared/failure_number.hpp"
#include "contract/shared/scratch.hpp"
#include "platform/windows/files.hpp"
#include "platform/windows/handle.hpp"

namespace kestra {
namespace {

class WindowsLogTest : public ::testing::Test {
 protected:
  std::int32_t FailureOf(const std::string& file) {
    return FailureNumber([&] { log_.Append(file, "x"); });
  }

  ScratchDirectory scratch_;
  WindowsLog log_;
};

TEST_F(WindowsLogTest, MayBeReadByOthersMeanwhile) {
  WriteFile("fiscal.log", "uno");
  const Handle reader(::CreateFileA("fiscal.log", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(static_cast<bool>(reader));
  log_.Append(".\\fiscal.log", "dos");
  EXPECT_EQ(ReadFile("fiscal.log"), "unodos");
}

TEST_F(WindowsLogTest, AFileThatAnotherHasForItselfIsAFailure) {
  const Handle other(
      ::CreateFileA("fiscal.log", GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
  EXPECT_EQ(FailureOf(".\\fiscal.log"), 70);
}

}  // namespace
}  // namespace kestra
