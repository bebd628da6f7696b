#include "diagnosis.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

#include "json.hpp"
#include "words.hpp"

namespace kestra::tool {
namespace {

constexpr std::array<std::string_view, 3> kLevelWords = {"FALLA", "AVISO", "NOTA"};
constexpr std::array<std::string_view, 3> kLevelCodes = {"falla", "aviso", "nota"};

template <typename Words>
std::string_view WordOf(const Words& words, Level level) {
  return words[static_cast<std::size_t>(level)];
}

std::string Said(const TroubleRow& row, const std::string& detail) {
  return std::string(row.what).append(detail.empty() ? "" : ": ").append(detail);
}

}  // namespace

void Diagnosis::Section(std::string title) {
  if (!console_.WantsJson()) {
    if (!parts_.empty()) console_.Line();
    console_.Line(title);
  }
  parts_.push_back({.title = std::move(title), .facts = {}});
}

void Diagnosis::Fact(std::string name, std::string value) {
  constexpr std::size_t kNameWidth = 22;
  if (!console_.WantsJson()) {
    console_.Out() << Wrapped("  " + Padded(name, kNameWidth) + " " + value, kNameWidth + 3) << '\n'
                   << std::flush;
  }
  parts_.back().facts.emplace_back(std::move(name), std::move(value));
}

void Diagnosis::Find(Trouble trouble, std::string detail) {
  findings_.push_back({&RowOf(trouble), std::move(detail)});
}

bool Diagnosis::Found(Trouble trouble) const {
  return std::any_of(findings_.begin(), findings_.end(),
                     [trouble](const Finding& one) { return one.row->trouble == trouble; });
}

const TroubleRow* Diagnosis::Verdict() const {
  const auto gravest = std::min_element(
      findings_.begin(), findings_.end(),
      [](const Finding& a, const Finding& b) { return a.row->trouble < b.row->trouble; });
  return gravest == findings_.end() ? nullptr : gravest->row;
}

Exit Diagnosis::Conclude() {
  std::stable_sort(findings_.begin(), findings_.end(), [](const Finding& a, const Finding& b) {
    return a.row->trouble < b.row->trouble;
  });
  const auto* const verdict = Verdict();
  const Exit exit = verdict == nullptr ? Exit::kGood : verdict->exit;
  if (console_.WantsJson()) {
    TellPrograms(exit);
  } else {
    TellPeople();
  }
  return exit;
}

void Diagnosis::TellPeople() const {
  console_.Line();
  for (const auto& [row, detail] : findings_) {
    const std::string head =
        std::string(WordOf(kLevelWords, row->level)) + "  " + std::string(row->code);
    console_.Line(head);
    console_.Line(Wrapped("       " + Said(*row, detail), 7));
    console_.Line(Wrapped("       Qué hacer: " + std::string(row->todo), 7));
  }
  if (!findings_.empty()) console_.Line();
  const bool good = findings_.empty() || findings_.front().row->level == Level::kNote;
  const std::string said = good ? "todo bien"
                                : std::string(findings_.front().row->code) + " — " +
                                      Said(*findings_.front().row, findings_.front().detail);
  console_.Line(Wrapped("Veredicto: " + said, 2));
}

void Diagnosis::TellPrograms(Exit exit) const {
  Json sections = Json::array();
  for (const auto& part : parts_) {
    Json facts = Json::object();
    for (const auto& [name, value] : part.facts) facts[name] = value;
    sections.push_back({{"titulo", part.title}, {"datos", facts}});
  }
  Json found = Json::array();
  for (const auto& [row, detail] : findings_) {
    found.push_back({{"codigo", row->code},
                     {"nivel", WordOf(kLevelCodes, row->level)},
                     {"que", row->what},
                     {"detalle", detail},
                     {"hacer", row->todo}});
  }
  const auto* const verdict = Verdict();
  const bool good = verdict == nullptr || verdict->level == Level::kNote;
  Print(console_, {{"secciones", sections},
                   {"hallazgos", found},
                   {"veredicto", good ? "bien" : verdict->code},
                   {"termina", static_cast<std::int32_t>(exit)}});
}

}  // namespace kestra::tool
