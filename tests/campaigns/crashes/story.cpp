#include "campaigns/crashes/story.hpp"

#include <algorithm>
#include <utility>

#include "campaigns/crashes/telling.hpp"

namespace kestra::crashes {

Story::Story(CanonicalDocument document, Mode mode, const Configuration& more)
    : document_(std::move(document)), mode_(mode) {
  document_.configuration.insert(document_.configuration.end(), more.begin(), more.end());
  Telling(*this, {}).Measure(*this);
}

bool Story::GoesWell() const {
  return std::all_of(good_.begin(), good_.end(),
                     [](const GoodCall& call) { return call.result == 0; });
}

StoryReport Story::Play(const Disaster& disaster) const {
  return Telling(*this, disaster).Run();
}

}  // namespace kestra::crashes
