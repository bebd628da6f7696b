#include "campaigns/line_faults/campaign.hpp"

#include <algorithm>
#include <random>

#include "campaigns/line_faults/trial.hpp"

namespace kestra::line_faults {
namespace {

constexpr std::array kDirections{Direction::kToPrinter, Direction::kToHost};

// The tally of that name; forms of one name follow each other.
Tally& TallyOf(NamedTallies& tallies, std::size_t& at, std::string_view name) {
  if (at < tallies.size() && tallies[at].first != name) ++at;
  if (at == tallies.size()) tallies.emplace_back(name, Tally{});
  return tallies[at].second;
}

void TouchByte(Trial& trial, Direction direction, std::size_t byte,
               const CampaignSettings& settings, CampaignReport& report) {
  std::size_t row = 0;
  for (const FaultForm& form : settings.forms) {
    const ByteFault fault{direction, byte, form.kind, form.detail};
    Tally& by_form = TallyOf(report.by_form[static_cast<std::size_t>(direction)], row, form.name);
    trial.Run({&fault, 1}, {&report.by_document.back().second, &by_form});
  }
}

void TouchEveryByte(Trial& trial, const CampaignSettings& settings, CampaignReport& report) {
  for (const auto direction : kDirections) {
    for (std::size_t byte = settings.first % settings.every; byte < trial.Bytes(direction);
         byte += settings.every) {
      TouchByte(trial, direction, byte, settings, report);
    }
  }
}

ByteFault AnyFault(const Trial& trial, const CampaignSettings& settings, std::mt19937_64& random) {
  const Direction direction = kDirections[random() % kDirections.size()];
  const FaultForm& form = settings.forms[random() % settings.forms.size()];
  return {direction, random() % trial.Bytes(direction), form.kind, form.detail};
}

}  // namespace

void Tally::Count(Verdict verdict, const RunReport& run) {
  ++runs;
  ++verdicts[static_cast<std::size_t>(verdict)];
  if (Misled(verdict) && !run.bad_checksum) ++undetectable;
  for (const CallReport& call : run.calls) longest = std::max(longest, call.lasted);
}

Tally& Tally::operator+=(const Tally& other) {
  runs += other.runs;
  for (std::size_t i = 0; i < verdicts.size(); ++i) verdicts[i] += other.verdicts[i];
  undetectable += other.undetectable;
  longest = std::max(longest, other.longest);
  return *this;
}

CampaignReport RunCampaign(const CampaignSettings& settings) {
  CampaignReport report;
  std::vector<Trial> trials;
  for (const CanonicalDocument& document : CanonicalDocuments()) {
    trials.emplace_back(document, settings, report);
    trials.back().MeasureOperations();
    report.by_document.emplace_back(document.name, Tally{});
    TouchEveryByte(trials.back(), settings, report);
  }
  std::mt19937_64 random(settings.seed);
  for (std::size_t i = 0; i < settings.pairs; ++i) {
    Trial& trial = trials[random() % trials.size()];
    const ByteFault first = AnyFault(trial, settings, random);
    const std::array pair{first, AnyFault(trial, settings, random)};
    trial.Run(pair, {&report.pairs});
  }
  return report;
}

}  // namespace kestra::line_faults
