#include "protocol/ledger.hpp"

#include <cstdlib>
#include <initializer_list>

#include "fields/text_field.hpp"
#include "protocol/amounts.hpp"
#include "state/library.hpp"

namespace kestra {
namespace {

constexpr char kNetLetter = 'A';            // its prices are without IVA
constexpr std::int64_t kRateUnit = 10'000;  // a rate of 21.00 % is 2100 of them
constexpr std::int64_t kOpenSlack = 3;      // of a correction that is spread over several rates

bool PricesAreNet(const Ledger& ledger) {
  return ledger.letter == kNetLetter;
}

std::optional<Amount> MoneyField(std::string_view command, std::size_t n, std::int32_t decimals) {
  const auto number = ReadDecimal(CommandField(command, n), decimals);
  return number ? Hundredths(*number) : std::nullopt;
}

std::optional<Amount> AmountOf(std::string_view command, const State& state) {
  const bool perception = MethodOf(command).method == Method::kPerception;
  return perception ? MoneyField(command, 3, state.DecPercepcion)
                    : MoneyField(command, 2, state.DecDesc);
}

// What a discount or a surcharge adds to the total. Where prices are without IVA it brings that along.
std::optional<std::int64_t> CorrectionOf(const Ledger& ledger, std::string_view command,
                                         const State& state) {
  const auto amount = AmountOf(command, state);
  if (!amount) return std::nullopt;
  const bool down = CommandField(command, 3) == "D";
  const auto signed_cents = down ? -amount->cents : amount->cents;
  if (!PricesAreNet(ledger)) return signed_cents;
  if (!ledger.net || !ledger.iva) return std::nullopt;
  return Share(signed_cents, *ledger.net + *ledger.iva, *ledger.net);
}

struct SoldLine {
  std::int64_t net = 0;
  std::int64_t iva = 0;
  std::int64_t internal_taxes = 0;
  std::int64_t slack = 0;
};

// Elsewhere than on letter A, which tickets do not have, the price has everything in it.
std::optional<SoldLine> LineOf(const Ledger& ledger, std::string_view command, const State& state) {
  const auto quantity = ReadDecimal(CommandField(command, 2), state.DecCantidad);
  const auto price = ReadDecimal(CommandField(command, 3), state.DecPrecio);
  if (!quantity || !price) return std::nullopt;
  const auto amount = Product(*quantity, *price);
  if (!amount) return std::nullopt;
  const bool sold = CommandField(command, 5) == "M";
  SoldLine line{.net = amount->cents, .slack = amount->slack + (sold ? 0 : 1)};
  if (PricesAreNet(ledger)) {
    const auto rate = MoneyField(command, 4, state.DecIVA);
    const auto each = ReadDecimal(CommandField(command, 12), state.DecImpInt);
    const auto taxes = each ? Product(*quantity, *each) : std::nullopt;
    const auto iva = rate ? Share(line.net, rate->cents, kRateUnit) : std::nullopt;
    if (!taxes || !iva) return std::nullopt;
    line.iva = *iva;
    line.internal_taxes = taxes->cents;
    line.slack += taxes->slack + 2;
  }
  if (sold) return line;
  return SoldLine{-line.net, -line.iva, -line.internal_taxes, line.slack};
}

void Add(std::optional<std::int64_t>& sum, std::optional<std::int64_t> more) {
  if (sum && more) {
    *sum += *more;
  } else {
    sum.reset();
  }
}

void AddToTotal(Ledger& ledger, std::optional<std::int64_t> cents, std::int64_t slack) {
  if (ledger.total && cents) {
    ledger.total->cents += *cents;
    ledger.total->slack += slack;
  } else {
    ledger.total.reset();
  }
}

void EnterOpening(Ledger& ledger, std::string_view command) {
  const auto first = [](std::string_view field) { return field.empty() ? '\0' : field.front(); };
  ledger.open = true;
  ledger.kind = first(command.starts_with('`') ? CommandField(command, 1) : command);
  ledger.letter = first(command.starts_with('`') ? CommandField(command, 3) : "");
  ledger.lines = ledger.paid = ledger.perceptions = ledger.net = ledger.iva = 0;
  ledger.total = Amount{};
  ledger.something_today = true;
}

void EnterLine(Ledger& ledger, std::string_view command, const State& state) {
  Add(ledger.lines, 1);
  const auto line = LineOf(ledger, command, state);
  if (!line) {
    ledger.total.reset();
    ledger.net.reset();
    ledger.iva.reset();
    return;
  }
  AddToTotal(ledger, line->net + line->iva + line->internal_taxes, line->slack);
  Add(ledger.net, line->net);
  Add(ledger.iva, line->iva);
}

void EnterCorrection(Ledger& ledger, std::string_view command, const State& state) {
  const auto change = CorrectionOf(ledger, command, state);
  AddToTotal(ledger, change, PricesAreNet(ledger) ? kOpenSlack : 0);
  if (!PricesAreNet(ledger) || !change) return;
  const auto amount = AmountOf(command, state)->cents;
  const auto net = CommandField(command, 3) == "D" ? -amount : amount;
  Add(ledger.net, net);
  Add(ledger.iva, *change - net);
}

void EnterPerception(Ledger& ledger, std::string_view command, const State& state) {
  const auto amount = AmountOf(command, state);
  const auto cents = amount ? std::optional(amount->cents) : std::nullopt;
  Add(ledger.perceptions, cents);
  AddToTotal(ledger, cents, amount ? amount->slack : 0);
}

void EnterPayment(Ledger& ledger, std::string_view command, const State& state) {
  const auto amount = AmountOf(command, state);
  Add(ledger.paid, amount ? std::optional(amount->cents) : std::nullopt);
}

void Forget(Ledger& ledger) {
  ledger.open = false;
  ledger.kind = ledger.letter = '\0';
  ledger.lines = ledger.paid = ledger.perceptions = ledger.net = ledger.iva = std::nullopt;
  ledger.total = std::nullopt;
  ledger.total_differs = false;
}

void CountOne(Ledger& ledger, std::optional<std::size_t> place) {
  if (place) Add(ledger.counters[*place], 1);
}

// What is cancelled spends a number, one of its kind.
void ForgetNumbers(Ledger& ledger) {
  Counters kept{};
  for (const auto place : {kDailyClosings, kCancelledToday, kNonFiscalToday}) {
    kept[place] = ledger.counters[place];
  }
  ledger.counters = kept;
}

void EnterCancelling(Ledger& ledger) {
  ForgetNumbers(ledger);
  CountOne(ledger, kCancelledToday);
  Forget(ledger);
}

void EnterDay(Ledger& ledger) {
  CountOne(ledger, kDailyClosings);
  ledger.counters[kCancelledToday] = 0;
  ledger.counters[kNonFiscalToday] = 0;
  ledger.something_today = false;
}

}  // namespace

void Enter(Ledger& ledger, std::string_view command, const State& digits) {
  switch (MethodOf(command).method) {
    case Method::kOpening:
      return EnterOpening(ledger, command);
    case Method::kLine:
      return EnterLine(ledger, command, digits);
    case Method::kCorrection:
      return EnterCorrection(ledger, command, digits);
    case Method::kPayment:
      return EnterPayment(ledger, command, digits);
    case Method::kPerception:
      return EnterPerception(ledger, command, digits);
    case Method::kCancel:
      return EnterCancelling(ledger);
    case Method::kClosing:
      CountOne(ledger, CounterOfClosing(command));
      return Forget(ledger);
    case Method::kDay:
      return EnterDay(ledger);
    default:
      return;
  }
}

void Blur(Ledger& ledger, std::string_view command) {
  const auto forget_total = [&] {
    ledger.total.reset();
    ledger.net.reset();
    ledger.iva.reset();
  };
  // What an opening, or an end, does not move is still known.
  const auto forget_document = [&](std::initializer_list<std::size_t> moved) {
    Forget(ledger);
    ledger.open.reset();
    for (const auto place : moved) ledger.counters.at(place).reset();
  };
  switch (MethodOf(command).method) {
    case Method::kLine:
      ledger.lines.reset();
      return forget_total();
    case Method::kPerception:
      ledger.perceptions.reset();
      return forget_total();
    case Method::kCorrection:
      return forget_total();
    case Method::kPayment:
      return ledger.paid.reset();
    case Method::kOpening:
      return forget_document({});
    case Method::kCancel:
      ForgetNumbers(ledger);
      return forget_document({kCancelledToday});
    case Method::kClosing:
      forget_document({});
      if (const auto place = CounterOfClosing(command)) ledger.counters.at(*place).reset();
      return;
    case Method::kDay:
      ledger.something_today = false;
      return forget_document({kDailyClosings, kCancelledToday, kNonFiscalToday});
    default:
      return;
  }
}

void EnterNumber(Ledger& ledger, std::string_view command, std::string_view number) {
  const auto given = WholeNumber(number);
  if (!given) return;
  const bool closing = MethodOf(command).method == Method::kClosing && !command.starts_with('J');
  if (closing) {
    if (const auto place = CounterOfClosing(command)) ledger.counters[*place] = given;
  }
  if (!command.starts_with('9')) return;
  // The report tells the number of the closing that it is, or that it would be.
  ledger.counters[kDailyClosings] = CommandField(command, 1) == "Z" ? *given : *given - 1;
}

void EnterSubtotal(Ledger& ledger, const Subtotal& subtotal) {
  ledger.lines = subtotal.lines;
  ledger.paid = subtotal.paid;
  ledger.perceptions = subtotal.perceptions;
  ledger.net = subtotal.net;
  ledger.iva = subtotal.iva;
  // A total that is not what was sent stays as it was reckoned, for who compares them before the closing.
  const auto& total = ledger.total;
  if (total && std::llabs(total->cents - subtotal.total) > total->slack) return;
  ledger.total = Amount{subtotal.total, 0};
}

void EnterCounters(Ledger& ledger, const Counters& counters) {
  ledger.counters = counters;
}

void EnterWords(Ledger& ledger, const Words& words) {
  const bool open = (words.fiscal & fiscal_word::kDocumentOpen) != 0;
  if (open) {
    ledger.open = true;
  } else if (!ledger.open || *ledger.open) {
    Forget(ledger);
  }
}

}  // namespace kestra
