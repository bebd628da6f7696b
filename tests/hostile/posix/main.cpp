// A host that does everything wrong, on the built library.
//
//   hostile_host STORY
//
// Ends with 0 when the library stood it; says what it did not stand.
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "campaigns/torture/under_way.hpp"
#include "hostile/posix/shop.hpp"
#include "hostile/posix/stories.hpp"

namespace kestra::hostile {
namespace {

struct Story {
  std::string_view name;
  void (*play)();
};

constexpr std::array kStories{
    Story{"arguments_with_a_printer", ArgumentsWithAPrinter},
    Story{"arguments_without_a_printer", ArgumentsWithoutAPrinter},
    Story{"arguments_with_traps", ArgumentsWithTraps},
    Story{"calls_from_within", CallsFromWithin},
    Story{"standard_streams_closed", StandardStreamsClosed},
    Story{"signals_all_the_time", SignalsAllTheTime},
    Story{"small_stacks", SmallStacks},
    Story{"no_descriptors_left", NoDescriptorsLeft},
    Story{"no_current_directory", NoCurrentDirectory},
};

int Play(std::string_view name) {
  for (const Story& story : kStories) {
    if (story.name != name) continue;
    torture::UnderWay::WatchForTheEnd();
    story.play();
    return Failures() == 0 ? 0 : 1;
  }
  std::fprintf(stderr, "no such story\n");
  return 2;
}

// In a session of its own: no terminal, and nobody there whom the library could ask.
int PlayApart(std::string_view name) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::setsid();
    const int result = Play(name);
    std::exit(result);
  }
  int status = 0;
  if (child < 0 || ::waitpid(child, &status, 0) != child) return 2;
  if (WIFSIGNALED(status)) std::printf("ended by signal %d\n", WTERMSIG(status));
  return WIFEXITED(status) ? WEXITSTATUS(status) : 2;
}

}  // namespace
}  // namespace kestra::hostile

int main(int argc, char** argv) {
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  return kestra::hostile::PlayApart(argc == 2 ? argv[1] : "");
}
