#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

#include "campaigns/line_faults/campaign.hpp"

namespace kestra::line_faults {

// One document under the conditions of a campaign: it knows how it goes on a good line, and looks at
// each run for what must never happen.
class Trial {
 public:
  Trial(const CanonicalDocument& document, const CampaignSettings& settings,
        CampaignReport& report);

  // On a good line, and with a printer that falls silent before each call.
  void MeasureOperations();

  // Plays the document with these faults and counts the run.
  void Run(std::span<const ByteFault> faults, std::initializer_list<Tally*> tallies);

  [[nodiscard]] std::size_t Bytes(Direction direction) const {
    return direction == Direction::kToPrinter ? good_.to_printer : good_.to_host;
  }

 private:
  [[nodiscard]] CallReport Silent(std::size_t call) const;
  [[nodiscard]] bool Hung(const RunReport& run, std::size_t faults) const;
  void CheckSafe(const RunReport& run, Verdict verdict, std::span<const ByteFault> faults);
  void CheckSafePair(const RunReport& run, Verdict verdict, std::span<const ByteFault> faults);
  [[nodiscard]] bool DidABookTwice(const RunReport& run) const;
  void Check(const RunReport& run, Verdict verdict, std::span<const ByteFault> faults);
  void Breach(std::string_view what, std::span<const ByteFault> faults);

  const CanonicalDocument* document_;
  OperatorHabit habit_;
  Mode mode_;
  RunReport good_;
  std::vector<std::size_t> frames_;  // at most, by call
  CampaignReport* report_;
};

}  // namespace kestra::line_faults
