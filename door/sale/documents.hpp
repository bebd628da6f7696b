// What there is to know of documents, customers and rates, as tables.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace puerta {

// Who a document's letter depends on.
struct Condition {
  std::string_view name;
  char letter;  // on the wire
  bool needs_cuit = false;
};
inline constexpr std::array kConditions{
    Condition{"responsable_inscripto", 'I', true},
    Condition{"responsable_no_inscripto", 'R', true},
    Condition{"no_responsable", 'N'},
    Condition{"exento", 'E', true},
    Condition{"monotributo", 'M', true},
    Condition{"consumidor_final", 'F'},
    Condition{"no_categorizado", 'S'},
};

// Letters that such a shop gives to such a customer.
struct LetterRow {
  std::string_view issuers, customers, letters;
};
inline constexpr std::array kLetters{
    LetterRow{"I", "IR", "A"},
    LetterRow{"I", "M", "AB"},
    LetterRow{"I", "NEFS", "B"},
    LetterRow{"RNEM", "IRNEMFS", "C"},
};

struct IdentityKind {
  std::string_view name;
  std::size_t least, most;  // characters of its number
  bool letters = false;     // may stand among the digits
  bool is_cuit = false;     // the last digit checks the others
};
inline constexpr std::array kIdentities{
    IdentityKind{"CUIT", 11, 11, false, true},
    IdentityKind{"CUIL", 11, 11, false, true},
    IdentityKind{"DNI", 6, 8},
    IdentityKind{"LE", 5, 8},
    IdentityKind{"LC", 5, 8},
    IdentityKind{"CI", 4, 9},
    IdentityKind{"PASAPO", 4, 11, true},
};

// In hundredths of a per cent.
inline constexpr std::array<std::int64_t, 6> kRates{0, 250, 500, 1050, 2100, 2700};

// The printer's counters, in the order in which it tells them.
inline constexpr std::size_t kCounters = 11;
struct CounterRow {
  std::size_t place;
  std::string_view kind, letter;
};
inline constexpr std::array kCounterRows{
    CounterRow{0, "cierre_z", ""},      CounterRow{1, "tique", ""},
    CounterRow{2, "factura", "A"},      CounterRow{3, "factura", "B"},
    CounterRow{4, "factura", "C"},      CounterRow{5, "cancelados", ""},
    CounterRow{6, "no_fiscales", ""},   CounterRow{7, "nota_credito", "A"},
    CounterRow{8, "nota_credito", "B"}, CounterRow{9, "nota_debito", "A"},
    CounterRow{10, "nota_debito", "B"},
};
inline constexpr std::size_t kClosings = 0, kCancelled = 5, kNonFiscal = 6;

// A kind of document of a family, and how the library calls it.
struct Kind {
  std::string_view name;
  std::string_view family;
  std::string_view type;  // "FC", "NC"...
  bool homologated = false;
  bool sells = true;         // else it takes no payment, and its letter is none of an invoice
  bool has_customer = true;  // a plain ticket has none
  bool counts_copies = false;
};
inline constexpr std::array kKinds{
    Kind{.name = "tique", .family = "TQ", .type = "FC", .has_customer = false},
    Kind{.name = "factura", .family = "TF", .type = "FC"},
    Kind{.name = "nota_credito", .family = "TF", .type = "NC"},
    Kind{.name = "factura", .family = "FC", .type = "FC", .counts_copies = true},
    Kind{.name = "nota_debito", .family = "FC", .type = "ND"},
    Kind{.name = "nota_credito",
         .family = "FC",
         .type = "NC",
         .homologated = true,
         .counts_copies = true},
    Kind{.name = "remito",
         .family = "FC",
         .type = "RT",
         .homologated = true,
         .sells = false,
         .counts_copies = true},
    Kind{.name = "otro",
         .family = "FC",
         .type = "CT",
         .homologated = true,
         .sells = false,
         .counts_copies = true},
};

template <class Table, class Fits>
constexpr auto FindRow(const Table& table, Fits fits) -> const typename Table::value_type* {
  const auto found = std::find_if(table.begin(), table.end(), fits);
  return found == table.end() ? nullptr : &*found;
}

template <class Table>
constexpr auto FindNamed(const Table& table, std::string_view name) -> const
    typename Table::value_type* {
  return FindRow(table, [name](const auto& row) { return row.name == name; });
}

// Which counter tells the number of such a document.
inline std::optional<std::size_t> CounterOf(std::string_view kind, std::string_view letter) {
  const auto* const row = FindRow(kCounterRows, [&](const CounterRow& one) {
    return one.kind == kind && (one.letter.empty() || one.letter == letter);
  });
  return row == nullptr ? std::nullopt : std::optional(row->place);
}

// Empty when one of the two is not known.
constexpr std::string_view LettersFor(char issuer, char customer) {
  for (const auto& row : kLetters) {
    if (row.issuers.find(issuer) != std::string_view::npos &&
        row.customers.find(customer) != std::string_view::npos)
      return row.letters;
  }
  return {};
}

// Eleven digits of which the last checks the others.
constexpr bool IsCuit(std::string_view digits) {
  constexpr std::array kWeights{5, 4, 3, 2, 7, 6, 5, 4, 3, 2, 1};
  if (digits.size() != kWeights.size() || digits.front() == '0') return false;
  int sum = 0;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (digits[i] < '0' || digits[i] > '9') return false;
    sum += kWeights[i] * (digits[i] - '0');
  }
  return sum % 11 == 0;
}

}  // namespace puerta
