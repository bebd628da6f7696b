#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "campaigns/line_faults/judge.hpp"

namespace kestra::line_faults {

// What many runs came to.
struct Tally {
  std::size_t runs = 0;
  std::array<std::size_t, kVerdictNames.size()> verdicts{};
  std::size_t undetectable = 0;  // misled by an answer whose checksum is in order
  Micros longest{};

  void Count(Verdict verdict, const RunReport& run);
  Tally& operator+=(const Tally& other);
};
using NamedTallies = std::vector<std::pair<std::string_view, Tally>>;

// What an operation takes that never returns.
inline constexpr Micros kNoEnd = Micros::max();

// What one operation took.
struct OperationTimes {
  std::size_t frames = 0;  // at most
  Micros good{};           // on a good line
  Micros silent{};         // with a printer that says nothing any more
  Micros faulty{};         // with the faults of the campaign
  Micros allowed{};        // by the protocol, with one fault
};

struct CampaignSettings {
  std::vector<FaultForm> forms{kFaultForms.begin(), kFaultForms.end()};
  std::size_t every = 1;   // only every so-manieth byte is touched,
  std::size_t first = 0;   // from this one on
  std::size_t pairs = 0;   // runs of two faults each, over all documents
  std::uint64_t seed = 1;  // of the pairs
  OperatorHabit habit = OperatorHabit::kNever;
  Mode mode = Mode::kBase;
};

struct CampaignReport {
  NamedTallies by_document;
  std::array<NamedTallies, 2> by_form;  // by direction
  Tally pairs;
  std::map<std::string, OperationTimes> operations;
  std::vector<std::string> breaches;  // of what must never happen, in words
};

// Every fault at every byte of every document, then the pairs.
CampaignReport RunCampaign(const CampaignSettings& settings);

}  // namespace kestra::line_faults
