#include <cstdlib>
#include <iostream>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "campaigns/crashes/days.hpp"
#include "campaigns/crashes/story.hpp"
#include "campaigns/program.hpp"

// Plays the canonical documents while the line ends, the power goes or the host dies at every byte and every
// step, starts the till again, and says what it came to know, as tables.
//   --cortes      line and printer alone
//   --muertes     hosts alone
//   --pares N     nothing but so many random pairs of faults, with ControlarTotal
//   --documentos N  nothing but so many documents, in days of many troubles
//   --semilla S   of the pairs and the days
//   --cada N      every N-th byte and step
//   --repetidas   with ReconoceRepetidas
//   --sin-repetidas  a printer that knows no repeated frame
// The number in KESTRA_SHARE says at which of the first N bytes --cada begins.
namespace kestra::crashes {
namespace {

struct Settings {
  Mode mode = Mode::kSafe;
  bool cuts = true, deaths = true;
  std::size_t every = 1, first = 0, pairs = 0, documents = 0;
  std::uint64_t seed = 1;
};

Settings ReadOptions(int argc, char** argv) {
  Settings settings;
  campaigns::ReadOptions(argc, argv,
                         {{"--cortes", [&] { settings.deaths = false; }},
                          {"--muertes", [&] { settings.cuts = false; }},
                          {"--repetidas", [&] { settings.mode = Mode::kSafeWithRepeats; }},
                          {"--sin-repetidas", [&] { settings.mode = Mode::kSafeForgetful; }}},
                         {{"--cada", &settings.every},
                          {"--pares", &settings.pairs},
                          {"--documentos", &settings.documents},
                          {"--semilla", &settings.seed}});
  if (settings.every == 0) throw std::invalid_argument("--cada");
  settings.first = campaigns::Share() % settings.every;
  return settings;
}

struct Row {
  std::size_t runs = 0;
  std::array<std::size_t, kEndingNames.size()> endings{};
};
using Table = std::vector<std::pair<std::string, Row>>;

struct Report {
  Table kinds;
  Table acts;
  std::map<std::string, std::size_t> unknown;  // by operation
  std::vector<std::string> wrong;
};

Row& RowOf(Table& table, std::string_view name) {
  for (auto& [known, row] : table) {
    if (known == name) return row;
  }
  table.emplace_back(name, Row{});
  return table.back().second;
}

void Count(Row& row, Ending ending) {
  ++row.runs;
  ++row.endings[static_cast<std::size_t>(ending)];
}

class Campaign {
 public:
  explicit Campaign(const Settings& settings) : settings_(settings) {}

  Report Run() {
    if (settings_.pairs > 0) Pairs();
    if (settings_.documents > 0) Days();
    for (const auto& document : line_faults::CanonicalDocuments()) {
      if (settings_.pairs > 0 || settings_.documents > 0) break;
      const Story story(document, settings_.mode);
      if (settings_.cuts) BreakEverywhere(document.name, story);
      if (settings_.deaths) DieEverywhere(document.name, story);
    }
    return std::move(report_);
  }

 private:
  struct Kind {
    std::string_view name;
    Disaster disaster;
    Breakage breakage = Breakage::kCut;
  };

  // The places stand for `death` or the breakdown's byte.
  template <typename Set>
  void Everywhere(const std::string& document, const Story& story, Kind kind, std::size_t places,
                  Set set) {
    for (std::size_t place = settings_.first; place < places; place += settings_.every) {
      set(kind.disaster, place);
      const auto told = story.Play(kind.disaster);
      Add(told, kind.name, ", place " + std::to_string(place) + " of " + document);
      if (kind.disaster.death == kNever) continue;
      Count(RowOf(report_.acts, kActNames[static_cast<std::size_t>(told.last_act)]), told.ending);
    }
  }

  void Add(const StoryReport& told, std::string_view kind, const std::string& where) {
    Count(RowOf(report_.kinds, kind), told.ending);
    if (told.ending == Ending::kUnknown) ++report_.unknown[told.operation];
    if (told.ending != Ending::kWrong) return;
    report_.wrong.push_back(told.wrong + ": " + told.operation + ", " + std::string(kind) + where);
  }

  void Pairs() {
    auto more = kJournal;
    more.emplace_back("ControlarTotal", "1");
    std::vector<Story> stories;
    for (const auto& document : line_faults::CanonicalDocuments())
      stories.emplace_back(document, settings_.mode, more);
    std::mt19937_64 random(settings_.seed);
    for (std::size_t i = 0; i < settings_.pairs; ++i) {
      const auto which = random() % stories.size();
      std::array<line_faults::ByteFault, 2> faults;
      std::string where =
          ", pair " + std::to_string(i) + " of " + line_faults::CanonicalDocuments()[which].name;
      for (auto& fault : faults) {
        const auto direction = random() % 2 == 0 ? Direction::kToPrinter : Direction::kToHost;
        const auto& form = line_faults::kFaultForms[random() % line_faults::kFaultForms.size()];
        fault = {direction, random() % stories[which].Bytes(direction), form.kind, form.detail};
        where += direction == Direction::kToPrinter ? ", > " : ", < ";
        where.append(form.name).append(" at ").append(std::to_string(fault.position));
      }
      Add(stories[which].Play({.faults = faults}), "two random faults", where);
    }
  }

  // The same day under ten skies.
  void Days() {
    constexpr std::size_t kPerDay = 10, kSkies = 10;
    std::mt19937_64 random(settings_.seed);
    for (std::size_t sold = 0; sold < settings_.documents;) {
      const Story story(AnyDay(random, kPerDay), settings_.mode);
      if (!story.GoesWell()) throw std::logic_error("a good day has a call that is refused");
      for (std::size_t i = 0; i < kSkies; ++i, sold += kPerDay) {
        const auto storm = random();
        const auto told = story.Play({.storm = storm});
        auto& row = RowOf(report_.kinds, "days, and the calls that ended in another way");
        ++row.runs;
        for (std::size_t n = 0; n < row.endings.size(); ++n) row.endings[n] += told.met[n];
        row.endings[0] += told.wrong.empty() ? 1 : 0;
        if (told.wrong.empty()) continue;
        report_.wrong.push_back(told.wrong + ": " + told.operation + ", day " +
                                std::to_string(sold / kPerDay) + ", storm " +
                                std::to_string(storm));
      }
    }
  }

  void BreakEverywhere(const std::string& name, const Story& story) {
    const Kind kinds[]{
        {"line cut for ever", {}, Breakage::kCut},
        {"line cut for ever, the call made again without asking", {.asks = false}, Breakage::kCut},
        {"cable pulled, for longer than anybody waits", {}, Breakage::kUnplugged},
        {"printer without power, for longer", {}, Breakage::kPowerless},
        {"the same, the call made again without asking", {.asks = false}, Breakage::kPowerless},
        {"printer off and on again within the patience", {.passes = true}, Breakage::kPowerless},
        {"cable pulled and put back within the patience", {.passes = true}, Breakage::kUnplugged},
    };
    for (const auto& kind : kinds) {
      for (const auto direction : {Direction::kToPrinter, Direction::kToHost}) {
        Everywhere(name, story, kind, story.Bytes(direction),
                   [&](Disaster& disaster, std::size_t byte) {
                     disaster.breakdown = {direction, byte, kind.breakage};
                   });
      }
    }
  }

  void DieEverywhere(const std::string& name, const Story& story) {
    const Kind kinds[]{
        {"host killed", {}},
        {"host killed, started again at once", {.at_once = true}},
        {"host killed, the call made again without asking", {.asks = false}},
        {"host killed, at once and without asking", {.at_once = true, .asks = false}},
        {"power cut: host and printer", {.printer_too = true}},
        {"power cut, the call made again without asking", {.printer_too = true, .asks = false}},
    };
    for (const auto& kind : kinds) {
      Everywhere(name, story, kind, story.Moments(),
                 [](Disaster& disaster, std::size_t moment) { disaster.death = moment; });
    }
    // In so many moments a new host has settled what was pending.
    constexpr std::size_t kRecovery = 900;
    constexpr std::size_t kScatter = 7919;
    Everywhere(name, story, {"host killed, and the next one too while it settles", {}},
               story.Moments(), [](Disaster& disaster, std::size_t moment) {
                 disaster.death = moment;
                 disaster.again = moment * kScatter % kRecovery;
               });
  }

  Settings settings_;
  Report report_;
};

void PrintTable(std::string_view title, const Table& table) {
  if (table.empty()) return;
  std::cout << "\n| " << title << " | runs |";
  for (const auto name : kEndingNames) std::cout << " " << name << " |";
  std::cout << "\n|---|";
  for (std::size_t i = 0; i <= kEndingNames.size(); ++i) std::cout << "---:|";
  std::cout << "\n";
  for (const auto& [name, row] : table) {
    std::cout << "| " << name << " | " << row.runs << " |";
    for (const auto count : row.endings) std::cout << " " << count << " |";
    std::cout << "\n";
  }
}

int Main(int argc, char** argv) {
  const auto settings = ReadOptions(argc, argv);
  std::cout << "every " << settings.every << ", from " << settings.first << "\n";
  const auto report = Campaign(settings).Run();
  PrintTable("what happened", report.kinds);
  PrintTable("the host died in", report.acts);
  std::cout << "\n| told: unknown | runs |\n|---|---:|\n";
  for (const auto& [operation, runs] : report.unknown) {
    std::cout << "| `" << operation << "` | " << runs << " |\n";
  }
  for (const auto& wrong : report.wrong) std::cerr << wrong << "\n";
  return report.wrong.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace kestra::crashes

int main(int argc, char** argv) {
  return kestra::campaigns::Run("crashes", [=] { return kestra::crashes::Main(argc, argv); });
}
