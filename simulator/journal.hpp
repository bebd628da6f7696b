#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "document.hpp"

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
  unsigned Documents() const { return sales.documents + credits.documents + unpriced; }
};

struct DailyClosing {
  std::uint32_t number;
  std::int64_t moment;
  Day day;
};

// Last number issued in each series and letter.
class Numbering {
 public:
  std::uint32_t Next(Series series, char letter) { return ++last_[{series, letter}]; }
  std::uint32_t Last(Series series, char letter) const;

 private:
  std::map<std::pair<Series, char>, std::uint32_t> last_;
};

}  // namespace impresora
