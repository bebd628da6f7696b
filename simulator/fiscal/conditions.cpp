#include "fiscal/conditions.hpp"

#include <algorithm>
#include <array>

namespace impresora {
namespace {

constexpr std::array<IvaCondition, 8> kConditions{{
    {.letter = 'I', .issues = true, .needs_cuit = true},
    {.letter = 'R', .issues = true, .needs_cuit = true},
    {.letter = 'N', .issues = true, .needs_cuit = false},
    {.letter = 'E', .issues = true, .needs_cuit = true},
    {.letter = 'M', .issues = true, .needs_cuit = true},
    {.letter = 'F', .issues = false, .needs_cuit = false},
    {.letter = 'C', .issues = false, .needs_cuit = false},
    {.letter = 'S', .issues = false, .needs_cuit = false},
}};

struct LetterRow {
  std::string_view issuers;
  std::string_view customers;
  std::string_view letters;
};

// To the small-taxpayer scheme printers made before July 2021 know B alone, later ones A.
constexpr std::array<LetterRow, 4> kLetters{{
    {.issuers = "I", .customers = "IR", .letters = "A"},
    {.issuers = "I", .customers = "M", .letters = "AB"},
    {.issuers = "I", .customers = "NEFCS", .letters = "B"},
    {.issuers = "RNEM", .customers = "IRNEMFCS", .letters = "C"},
}};

constexpr std::array<std::int64_t, 6> kRates{0, 250, 500, 1050, 2100, 2700};

bool Has(std::string_view letters, char letter) {
  return letters.find(letter) != std::string_view::npos;
}

}  // namespace

const IvaCondition* FindIvaCondition(char letter) {
  for (const IvaCondition& row : kConditions) {
    if (row.letter == letter) return &row;
  }
  return nullptr;
}

std::string_view LettersFor(char issuer, char customer) {
  for (const LetterRow& row : kLetters) {
    if (Has(row.issuers, issuer) && Has(row.customers, customer)) return row.letters;
  }
  return {};
}

bool IsIvaRate(std::int64_t rate) {
  return std::find(kRates.begin(), kRates.end(), rate) != kRates.end();
}

}  // namespace impresora
