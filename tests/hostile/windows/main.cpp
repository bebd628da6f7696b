// A host that calls the library with its machine set up in odd ways, and watches what comes back.
//
//     armour_host STORY
//
// Each story prints its broken promises; the result is 0 when there are none.

#include "programs/stories.hpp"
#include "watch.hpp"

int main(int count, char** words) {
  armour::BeginWatch();
  return kestra::Story::Tell(count == 2 ? words[1] : "");
}
