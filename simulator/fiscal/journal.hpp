#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "fiscal/document.hpp"

namespace impresora {

// What one kind of operation (sales, credit notes) moved during a day.
struct Movement {
  unsigned documents = 0;
  std::int64_t total = 0;
  std::int64_t internal = 0;
  std::int64_t perceptions = 0;
  std::vector<RateTotal> rates;  // ascending by rate

  void Add(const Totals& totals);
  std::int64_t Iva() const;
  bool operator==(const Movement&) const = default;
};

// A working day: from its first fiscal document to its closing.
struct Day {
  std::optional<std::int64_t> opened;
  Movement sales;
  Movement credits;
  unsigned unpriced = 0;  // delivery notes and others that move no money
  unsigned cancelled = 0;
  unsigned non_fiscal = 0;

  void Close(const DocumentKind& kind, const Totals& totals);
  bool operator==(const Day&) const = default;
  unsigned Documents() const { return sales.documents + credits.documents + unpriced; }
};

struct DailyClosing {
  std::uint32_t number;
  std::int64_t moment;
  Day day;
};

// What a finished document was: fiscal, non-fiscal or a report, as its row tells.
enum class ReceiptClass { kFiscal, kNonFiscal, kReport };

struct Receipt {
  unsigned ordinal = 0;  // 1, 2, 3... over everything that the printer ever finished
  ReceiptClass receipt_class = ReceiptClass::kFiscal;
  std::string kind{};  // the title as printed, UTF-8
  char code = 0;       // kind letter on the wire; 0 for tickets, non-fiscal documents and reports
  char letter = 0;
  std::uint32_t number = 0;
  std::int64_t total = 0;
  std::int64_t iva = 0;
  std::int64_t moment = 0;
  bool cancelled = false;
  std::string customer_id{};  // the customer's document number, "" for tickets
};

// What an open document will be known by; money and end are the caller's.
Receipt ReceiptOf(const Document& document);

// Last number issued in each series and letter.
class Numbering {
 public:
  std::uint32_t Next(Series series, char letter) { return ++last_[{series, letter}]; }
  std::uint32_t Last(Series series, char letter) const;
  void Set(Series series, char letter, std::uint32_t last) { last_[{series, letter}] = last; }

  using Entries = std::map<std::pair<Series, char>, std::uint32_t>;
  const Entries& All() const { return last_; }
  bool operator==(const Numbering&) const = default;

 private:
  Entries last_;
};

}  // namespace impresora
