#include <algorithm>

#include "commands/commands.hpp"
#include "fiscal/calendar.hpp"
#include "machine/status.hpp"
#include "paper/layout.hpp"
#include "text/text.hpp"

namespace impresora {
namespace {

std::string Count(unsigned value) {
  return Padded(value, 5);
}

// Of the finished documents: a host that was not told how its close ended finds out here.
std::string LastNumber(const Machine& m, Series series, char letter) {
  const bool open =
      m.document && m.document->Kind().series == series && m.document->letter == letter;
  return Padded(m.numbering.Last(series, letter) - (open ? 1U : 0U), 8);
}

std::string LastClosing(const Machine& m) {
  return Padded(static_cast<std::int64_t>(m.closings.size()), 5);
}

std::vector<std::string> Counters(const Machine& m) {
  return {LastClosing(m),
          LastNumber(m, Series::kTicket, 'B'),
          LastNumber(m, Series::kInvoice, 'A'),
          LastNumber(m, Series::kInvoice, 'B'),
          LastNumber(m, Series::kInvoice, 'C'),
          Count(m.day.cancelled),
          Count(m.day.non_fiscal),
          LastNumber(m, Series::kCreditNote, 'A'),
          LastNumber(m, Series::kCreditNote, 'B'),
          LastNumber(m, Series::kDebitNote, 'A'),
          LastNumber(m, Series::kDebitNote, 'B')};
}

std::string DigitPair(Digits digits) {
  return std::to_string(digits.integers) + std::to_string(digits.decimals);
}

std::string_view FamilyCode(Family family) {
  if (family == Family::kTicket) return "TQ";
  return family == Family::kForm ? "FC" : "TF";
}

std::vector<std::string> Model(const Machine& m) {
  const FieldDigits& digits = m.settings.digits;
  return {std::string(FamilyCode(m.settings.family)),
          DigitPair(digits.quantity),
          DigitPair(digits.price),
          DigitPair(digits.rate),
          DigitPair(digits.internal_tax),
          DigitPair(digits.amount),
          DigitPair(digits.perception),
          Padded(static_cast<std::int64_t>(m.settings.PaperColumns()), 3),
          Padded(kHeaderLines, 2),
          Padded(m.settings.point_of_sale, 4),
          m.settings.model};
}

std::vector<std::string> Owner(const Machine& m) {
  return {m.settings.owner_cuit, Padded(m.settings.point_of_sale, 4),
          std::string(1, m.settings.owner_iva), m.settings.owner};
}

std::vector<std::string> DayFigures(const Machine& m) {
  return {Count(m.day.Documents()), Padded(m.day.sales.total, 12), Padded(m.day.sales.Iva(), 12),
          Padded(m.day.credits.total, 12), Padded(m.closings_left, 5)};
}

std::vector<std::string> Summary(const Machine& m) {
  return {DateDigits(m.now), TimeDigits(m.now), LastClosing(m), Padded(m.closings_left, 5)};
}

struct StatusQuery {
  char letter;
  std::vector<std::string> (*answer)(const Machine&);
};

constexpr std::array<StatusQuery, 5> kStatusQueries{{
    {'N', Summary},
    {'A', Counters},
    {'P', Model},
    {'C', Owner},
    {'D', DayFigures},
}};

// The fiscal clock never goes back behind what the printer has recorded.
std::int64_t EarliestClock(const Machine& m) {
  const std::int64_t closed = m.closings.empty() ? 0 : m.closings.back().moment;
  return m.day.opened ? std::max(closed, m.now) : closed;
}

// The header's lines, then the trailer's, counted from 1.
std::string* FindLine(Machine& m, std::int64_t number) {
  if (number < 1 || number > kHeaderLines + kTrailerLines) return nullptr;
  const auto index = static_cast<std::size_t>(number - 1);
  return index < kHeaderLines ? &m.header.at(index) : &m.trailer.at(index - kHeaderLines);
}

}  // namespace

Outcome OpenNonFiscal(Machine& m, const Fields& /*f*/) {
  m.non_fiscal_open = true;
  PrintNonFiscalHead(m);
  return {};
}

Outcome NonFiscalText(Machine& m, const Fields& f) {
  m.paper.HostText(f.Text(0));
  return {};
}

Outcome CloseNonFiscal(Machine& m, const Fields& /*f*/) {
  PrintNonFiscalFoot(m);
  m.non_fiscal_open = false;
  ++m.day.non_fiscal;
  m.Finish({.receipt_class = ReceiptClass::kNonFiscal, .kind = "DOCUMENTO NO FISCAL"});
  return {};
}

Outcome QueryStatus(Machine& m, const Fields& f) {
  for (const StatusQuery& query : kStatusQueries) {
    if (query.letter == f.Letter(0)) return {.error = 0, .fields = query.answer(m)};
  }
  return {.error = 0, .fields = Summary(m)};
}

Outcome CutPaper(Machine& m, const Fields& /*f*/) {
  m.paper.Cut();
  return {};
}

Outcome FeedPaper(Machine& m, const Fields& f) {
  m.paper.Feed(static_cast<int>(f.Number(0)));
  return {};
}

Outcome SetClock(Machine& m, const Fields& f) {
  const std::int64_t wanted = f.Number(0) + f.Number(1);
  if (wanted < EarliestClock(m)) return Refused(kWrongState);
  m.clock_offset += wanted - m.now;
  m.now = wanted;
  return {};
}

Outcome ReadClock(Machine& m, const Fields& /*f*/) {
  return {.error = 0, .fields = {DateDigits(m.now), TimeDigits(m.now)}};
}

Outcome SetHeader(Machine& m, const Fields& f) {
  std::string* const line = FindLine(m, f.Number(0));
  if (line == nullptr) return Refused(kInvalidField);
  *line = TrimRight(f.Text(1));
  return {};
}

Outcome ReadHeader(Machine& m, const Fields& f) {
  const std::string* const line = FindLine(m, f.Number(0));
  if (line == nullptr) return Refused(kInvalidField);
  return {.error = 0, .fields = {std::to_string(f.Number(0)), *line}};
}

Outcome OpenDrawer(Machine& m, const Fields& /*f*/) {
  ++m.drawer_openings;
  return {};
}

}  // namespace impresora
