#include "campaigns/torture/campaign.hpp"

#include <iostream>

#include "campaigns/torture/run.hpp"
#include "campaigns/torture/under_way.hpp"

namespace kestra::torture {
namespace {

// The ways to fail: the heap knows one, the interfaces three.
std::size_t AilmentsOf(std::size_t target) {
  return target == kMemory ? 1 : kAilmentNames.size();
}

class Campaign {
 public:
  Campaign(const Options& options, Tally& tally) : options_(options), tally_(tally) {}

  void Play(const golden::Case& played);
  std::vector<std::string> complaints;

 private:
  void StrikeAll(const golden::Case& played, const Quiet& quiet, std::size_t target, int calls);
  Outcome Try(const golden::Case& played, const Quiet& quiet, const Strike& strike);
  bool IsTurnOf() { return strikes_++ % options_.every == options_.first % options_.every; }

  const Options& options_;
  Tally& tally_;
  std::size_t strikes_ = 0;
};

Outcome Campaign::Try(const golden::Case& played, const Quiet& quiet, const Strike& strike) {
  const UnderWay mark(played.name, Describe(strike));
  Outcome outcome = Run(played.text, strike, quiet, tally_);
  if (!outcome.complaint.empty()) {
    complaints.push_back(played.name + ", " + Describe(strike) + ": " + outcome.complaint);
  }
  return outcome;
}

void Campaign::StrikeAll(const golden::Case& played, const Quiet& quiet, std::size_t target,
                         int calls) {
  for (int nth = 1; nth <= calls; ++nth) {
    for (const bool forever : {false, true}) {
      for (std::size_t ailment = 0; ailment < AilmentsOf(target); ++ailment) {
        if (!IsTurnOf()) continue;
        const Strike strike{target, nth, forever, static_cast<Ailment>(ailment)};
        const Outcome outcome = Try(played, quiet, strike);
        // Up to the strike all runs are the same: a call that was made once is made again.
        if (outcome.failures == 0) complaints.push_back(played.name + ": no two runs are the same");
      }
    }
  }
}

void Campaign::Play(const golden::Case& played) {
  const Quiet quiet = RunQuietly(played.text, tally_);
  const Outcome untouched = Try(played, quiet, {});
  for (std::size_t target = 0; target < kTargets; ++target) {
    StrikeAll(played, quiet, target, untouched.reached[target]);
  }
}

bool IsWanted(const Options& options, const golden::Case& played, std::size_t position) {
  return position % options.shares == options.share &&
         played.name.find(options.only) != std::string::npos;
}

}  // namespace

std::vector<std::string> Torture(const std::vector<golden::Case>& cases, const Options& options,
                                 Tally& tally) {
  Campaign campaign(options, tally);
  for (std::size_t i = 0; i < cases.size(); ++i) {
    if (IsWanted(options, cases[i], i)) campaign.Play(cases[i]);
  }
  return std::move(campaign.complaints);
}

}  // namespace kestra::torture
