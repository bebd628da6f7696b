#include <gtest/gtest.h>
#include <sys/resource.h>

#include "contract/posix/surroundings.hpp"
#include "contract/shared/scratch.hpp"
#include "fakes/failure_number.hpp"
#include "platform/posix/files.hpp"

namespace kestra {
namespace {

bool LosesTheLineAndFindsNoSetting() {
  const rlimit none = {.rlim_cur = 0, .rlim_max = 0};
  ::setrlimit(RLIMIT_NOFILE, &none);
  PosixLog log;
  PosixProfile profile;
  const auto failure = FailureNumber([&] { log.Append(".\\fiscal.log", "una\r\n"); });
  return failure == 67 && profile.Read("S", "K", ".\\Fiscal.ini").empty();
}

TEST(NoDescriptors, TheLineIsLostAndTheHostLives) {
  const ScratchDirectory scratch;
  WriteFile("Fiscal.ini", "[S]\nK=12\n");
  EXPECT_EQ(InChild(LosesTheLineAndFindsNoSetting), 0);
}

}  // namespace
}  // namespace kestra
