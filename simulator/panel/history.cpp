#include "panel/history.hpp"

#include <algorithm>
#include <utility>

#include "machine/status.hpp"
#include "panel/event_json.hpp"
#include "trace/exchange_json.hpp"
#include "trace/exchange_text.hpp"

namespace impresora {
namespace {

constexpr std::size_t kExchanges = 200;
constexpr std::size_t kDocuments = 50;
constexpr std::size_t kRoll = 2'000;
constexpr std::size_t kLinesOfDocument = 5'000;

template <typename Item>
void Keep(std::deque<Item>& kept, Item item, std::size_t most) {
  kept.push_back(std::move(item));
  if (kept.size() > most) kept.pop_front();
}

}  // namespace

void History::Resumed(const std::vector<PaperLine>& paper) {
  for (const PaperLine& line : paper) TakeLine(line);
}

void History::Exchanged(const Exchange& exchange) {
  counters_.commands += exchange.kind == ExchangeKind::kExecuted ? 1 : 0;
  counters_.repeated += exchange.kind == ExchangeKind::kRepeated ? 1 : 0;
  counters_.damaged += exchange.kind == ExchangeKind::kDamaged ? 1 : 0;
  counters_.faulty += exchange.faults.empty() ? 0 : 1;
  const unsigned bits = unsigned{exchange.answer.printer} | exchange.answer.fiscal;
  counters_.refused += (bits & kSummary) != 0 ? 1 : 0;
  std::string json = TraceJson(exchange);
  feed_.Publish("intercambio", json);
  Keep(exchanges_, {exchange.number, std::move(json), Describe(exchange)}, kExchanges);
}

void History::Printed(const PaperLine& line) {
  ++counters_.lines;
  feed_.Publish("papel", PaperLineJson(line));
  TakeLine(line);
}

void History::TakeLine(const PaperLine& line) {
  if (open_paper_.size() < kLinesOfDocument) open_paper_.push_back(line);
  Keep(roll_, line, kRoll);
}

void History::Closed(const Receipt& receipt) {
  ++counters_.documents;
  counters_.cancelled += receipt.cancelled ? 1 : 0;
  feed_.Publish("documento", ReceiptJson(receipt));
  Keep(documents_, {receipt, std::exchange(open_paper_, {})}, kDocuments);
}

const KeptDocument* History::FindDocument(unsigned ordinal) const {
  if (ordinal == 0) return documents_.empty() ? nullptr : &documents_.back();
  const auto found =
      std::find_if(documents_.begin(), documents_.end(),
                   [ordinal](const KeptDocument& kept) { return kept.receipt.ordinal == ordinal; });
  return found == documents_.end() ? nullptr : &*found;
}

void History::TearOff() {
  roll_.clear();
}

}  // namespace impresora
