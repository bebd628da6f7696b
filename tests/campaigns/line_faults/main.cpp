#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "campaigns/line_faults/campaign.hpp"
#include "campaigns/program.hpp"

// Plays the canonical documents with every fault at every byte and says what came of it, as tables.
//   --cada N      only every N-th byte, to look quickly
//   --pares N     and so many random pairs of faults
//   --semilla S   of the pairs
//   --todo        every other byte in its place and every byte before it, not only those that tell
//   --insiste     the operator tries again, once
//   --seguro      the driver with ModoSeguro
//   --repetidas   the same with ReconoceRepetidas
//   --sin-repetidas  the same without it, and with a printer that knows no repeated frame
// The number in KESTRA_SHARE says at which of the first N bytes --cada begins, and is the seed if none is given:
// each commit may try others.
namespace kestra::line_faults {
namespace {

CampaignSettings ReadOptions(int argc, char** argv) {
  CampaignSettings settings;
  settings.first = campaigns::Share();
  if (settings.first > 0) settings.seed = settings.first;
  campaigns::ReadOptions(
      argc, argv,
      {{"--insiste", [&] { settings.habit = OperatorHabit::kOnce; }},
       {"--seguro", [&] { settings.mode = Mode::kSafe; }},
       {"--sin-repetidas", [&] { settings.mode = Mode::kSafeForgetful; }},
       {"--repetidas", [&] { settings.mode = Mode::kSafeWithRepeats; }},
       {"--todo", [&] { settings.forms = EveryFaultForm(); }}},
      {{"--cada", &settings.every}, {"--pares", &settings.pairs}, {"--semilla", &settings.seed}});
  if (settings.every == 0) throw std::invalid_argument("--cada");
  std::cout << "every " << settings.every << ", from " << settings.first % settings.every
            << ", seed " << settings.seed << "\n";
  return settings;
}

std::string Seconds(Micros time) {
  if (time == kNoEnd) return "no end";
  const auto tenths = (time.count() + 50'000) / 100'000;
  return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

void PrintHead(std::string_view first) {
  std::cout << "\n| " << first << " | runs |";
  for (const auto name : kVerdictNames) std::cout << " " << name << " |";
  std::cout << " longest call, s |\n|---|";
  for (std::size_t i = 0; i < kVerdictNames.size() + 2; ++i) std::cout << "---:|";
  std::cout << "\n";
}

void PrintRow(std::string_view name, const Tally& tally) {
  std::cout << "| " << name << " | " << tally.runs << " |";
  for (const auto count : tally.verdicts) std::cout << " " << count << " |";
  std::cout << " " << Seconds(tally.longest) << " |\n";
}

void PrintUndetectable(const Tally& tally) {
  std::cout << "\nMisled by a damaged answer whose checksum is right: " << tally.undetectable
            << "\n";
}

Tally PrintTable(std::string_view title, const NamedTallies& tallies) {
  PrintHead(title);
  Tally all;
  for (const auto& [name, tally] : tallies) {
    PrintRow(name, tally);
    all += tally;
  }
  PrintRow("all", all);
  return all;
}

void PrintPairs(const Tally& pairs) {
  if (pairs.runs == 0) return;
  PrintHead("two faults");
  PrintRow("random pairs", pairs);
  PrintUndetectable(pairs);
}

void PrintOperations(const CampaignReport& report) {
  std::cout
      << "\n| operation | frames | good line, s | silent printer, s | one fault, s | allowed, s |\n"
         "|---|---:|---:|---:|---:|---:|\n";
  for (const auto& [name, times] : report.operations) {
    std::cout << "| `" << name << "` | " << times.frames << " | " << Seconds(times.good) << " | "
              << Seconds(times.silent) << " | " << Seconds(times.faulty) << " | "
              << Seconds(times.allowed) << " |\n";
  }
}

int Main(int argc, char** argv) {
  const CampaignReport report = RunCampaign(ReadOptions(argc, argv));
  PrintTable("document", report.by_document);
  PrintTable("on the way to the printer", report.by_form[0]);
  PrintUndetectable(PrintTable("on the way to the host", report.by_form[1]));
  PrintPairs(report.pairs);
  PrintOperations(report);
  for (const std::string& breach : report.breaches) std::cerr << breach << "\n";
  return report.breaches.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace kestra::line_faults

int main(int argc, char** argv) {
  return kestra::campaigns::Run("line_faults",
                                [=] { return kestra::line_faults::Main(argc, argv); });
}
