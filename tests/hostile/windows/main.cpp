// A host that calls the library with its machine set up in odd ways, and watches what comes back.
//
//     armour_host STORY
//
// Each story prints its broken promises; the result is 0 when there are none.

#include <array>
#include <cstdio>
#include <string_view>

#include "stories.hpp"
#include "watch.hpp"

namespace {

struct Story {
  std::string_view name;
  void (*play)();
};

constexpr std::array kStories = {
    Story{"watch", armour::TheWatchSeesDamage},
    Story{"table", armour::EveryExportIsInTheTable},
    Story{"day_with_a_printer", armour::ADayWithAPrinter},
    Story{"day_without_a_printer", armour::ADayWithoutAPrinter},
    Story{"day_without_settings", armour::ADayWithoutSettings},
    Story{"numbers", armour::Numbers},
    Story{"pointers", armour::BadPointers},
    Story{"result_pointers", armour::BadPointersForResults},
    Story{"callbacks", armour::Callbacks},
    Story{"abandoned", armour::AbandonedCalls},
    Story{"first_calls", armour::FirstCallsAtOnce},
    Story{"loading", armour::LoadingKeepsTheUnits},
    Story{"many_threads", armour::LoadingFromManyThreads},
    Story{"twice", armour::LoadingTwice},
    Story{"no_goodbye", armour::LeavingWithoutAGoodbye},
    Story{"threads_behind", armour::LeavingThreadsBehind},
    Story{"end_without_goodbye", armour::EndingWithoutAGoodbye},
    Story{"end_in_mid_call", armour::EndingInMidCall},
};

}  // namespace

int main(int count, char** words) {
  for (const auto& story : kStories) {
    if (count != 2 || story.name != words[1]) continue;
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    armour::BeginWatch();
    story.play();
    return armour::Failures() == 0 ? 0 : 1;
  }
  std::fprintf(stderr, "armour_host STORY\n");
  return 2;
}
