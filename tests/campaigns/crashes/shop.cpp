#include "campaigns/crashes/shop.hpp"

#include <algorithm>
#include <array>
#include <regex>
#include <span>

#include "commands/commands.hpp"
#include "fakes/fake_platform.hpp"
#include "frame/instance.hpp"
#include "golden/exports.hpp"
#include "golden/words.hpp"
#include "kestra/kestra.h"
#include "machine/roll.hpp"

namespace kestra::crashes {
namespace {

// Words of an answer by which the printer says that it has not done it.
constexpr unsigned kRefused = 0x0078;
constexpr unsigned kMechanismFailed = 0x0004;

constexpr std::string_view kPowerCut = "CORTE DE ENERG";
constexpr std::string_view kTotal = "T O T A L";
constexpr std::size_t kAnyWidth = 200;

// Before the answers that the library took, in its log.
constexpr std::string_view kTaken = " - Respuesta : ";

bool Changed(const impresora::Exchange& exchange) {
  return exchange.kind == impresora::ExchangeKind::kExecuted &&
         (exchange.answer.fiscal & kRefused) == 0 &&
         (exchange.answer.printer & kMechanismFailed) == 0 && !impresora::OnlyAsks(exchange.packet);
}

std::size_t CountLines(std::string_view text, std::string_view beginning) {
  std::size_t count = 0;
  for (const auto line : golden::Split(text, "\n")) count += line.starts_with(beginning) ? 1 : 0;
  return count;
}

// Where the printer's calendar goes on, trouble takes time.
std::string WithoutHour(const std::string& line) {
  static const std::regex hour("[0-9]{2}:[0-9]{2}:[0-9]{2}");
  return std::regex_replace(line, hour, "");
}

template <typename Ask>
std::int32_t WithText(std::string& text, Ask ask) {
  std::array<char, 200> buffer{};
  const auto result = ask(buffer.data(), static_cast<std::int32_t>(buffer.size()));
  text.assign(buffer.data(), buffer.size());
  text.erase(text.find_last_not_of(std::string_view(" \0", 2)) + 1);
  return result;
}

}  // namespace

Shop::Shop(const line_faults::CanonicalDocument& document, line_faults::Mode mode,
           std::span<const line_faults::ByteFault> faults)
    : world_(std::make_unique<LineWorld>(document, faults, mode)) {}

Shop::~Shop() {
  ReplaceInstance(std::make_unique<FakePlatform>());
}

void Shop::Start(std::size_t death) {
  auto life = std::make_unique<Life>(death);
  ReplaceInstance(std::make_unique<MortalPlatform>(*world_, *life));
  life_ = std::move(life);
  EP_Init();
}

Told Shop::Call(std::string_view words) {
  const auto operation = golden::TakeWord(words);
  auto outcome = golden::CallExport(operation, golden::Words(words));
  return {outcome.result, Kestra_Desenlace(), Kestra_Causa(), std::move(outcome.buffers)};
}

std::int32_t Shop::Pending(std::string& call) {
  return WithText(call, Kestra_Pendiente);
}

std::int32_t Shop::Resolve(std::string& number) {
  const auto outcome = Kestra_Resolver();
  WithText(number, Kestra_ResolverNumero);
  return outcome;
}

Words Shop::DeedsFrom(std::size_t exchange) {
  world_->Settle();
  Words deeds;
  const auto& all = world_->Exchanges();
  for (; exchange < all.size(); ++exchange) {
    if (Changed(all[exchange])) deeds.push_back(all[exchange].packet.body.substr(1));
  }
  return deeds;
}

Words Shop::Paper() const {
  Words lines;
  for (const auto& line : world_->Paper()) {
    if (line.text.find(kPowerCut) == std::string::npos) {
      auto text = impresora::AsText(line, kAnyWidth);
      lines.push_back(world_->CalendarRuns() ? WithoutHour(text) : text);
    }
  }
  return lines;
}

Words Shop::Totals() const {
  Words lines = Paper();
  std::erase_if(lines,
                [](const std::string& line) { return line.find(kTotal) == std::string::npos; });
  return lines;
}

bool Shop::DidWhatNobodyWrote() const {
  const auto& frames = world_->Frames();
  const auto& all = world_->Exchanges();
  return std::any_of(all.begin(), all.end(), [&](const impresora::Exchange& exchange) {
    return Changed(exchange) &&
           std::find(frames.begin(), frames.end(), exchange.raw_command) == frames.end();
  });
}

Words Shop::DamagedAnswers() const {
  Words damaged;
  for (const auto& event : world_->GetJournal().Events()) {
    const auto at = event.text.find(kTaken);
    if (event.kind != Happening::kLog || at == std::string::npos) continue;
    const auto begin = at + kTaken.size();
    const auto answer = event.text.substr(begin, event.text.find('\r', begin) - begin);
    if (world_->Said().find(answer) == std::string::npos) damaged.push_back(answer);
  }
  return damaged;
}

std::string Shop::LastRecord() {
  const auto& files = world_->GetJournalFile().Disk()->files;
  const auto found = files.find(std::string(kJournalName));
  const std::string_view text = found == files.end() ? std::string_view() : found->second;
  const auto end = text.rfind('\n');
  if (end == std::string_view::npos) return {};
  const auto begin = end == 0 ? std::string_view::npos : text.rfind('\n', end - 1);
  const auto from = begin == std::string_view::npos ? 0 : begin + 1;
  return std::string(text.substr(from, end - from));
}

std::size_t Shop::Results() {
  std::size_t count = 0;
  for (const auto& [name, text] : world_->GetJournalFile().Disk()->files) {
    count += CountLines(text, "resultado\t");
  }
  return count;
}

}  // namespace kestra::crashes
