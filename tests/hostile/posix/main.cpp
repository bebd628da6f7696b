// A host that does everything wrong, on the built library.
//
//   hostile_host STORY
//
// Ends with 0 when the library stood it; says what it did not stand.
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "campaigns/torture/under_way.hpp"
#include "programs/stories.hpp"

namespace kestra::hostile {
namespace {

// In a session of its own: no terminal, and nobody there whom the library could ask.
int PlayApart(std::string_view name) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::setsid();
    torture::UnderWay::WatchForTheEnd();
    std::exit(Story::Tell(name));
  }
  int status = 0;
  if (child < 0 || ::waitpid(child, &status, 0) != child) return 2;
  if (WIFSIGNALED(status)) std::printf("ended by signal %d\n", WTERMSIG(status));
  return WIFEXITED(status) ? WEXITSTATUS(status) : 2;
}

}  // namespace
}  // namespace kestra::hostile

int main(int argc, char** argv) {
  return kestra::hostile::PlayApart(argc == 2 ? argv[1] : "");
}
