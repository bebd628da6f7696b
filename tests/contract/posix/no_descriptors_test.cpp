#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

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
  const pid_t child = ::fork();
  if (child == 0) ::_exit(LosesTheLineAndFindsNoSetting() ? 0 : 1);
  int status = -1;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace kestra
