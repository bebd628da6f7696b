#include "log/field_words.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "fiscal/amounts.hpp"

namespace kestra::tool {
namespace {

using impresora::Digits;
using impresora::FieldDigits;
using impresora::FieldKind;
using impresora::FieldRow;

struct KindDigits {
  FieldKind kind;
  Digits FieldDigits::*digits;
};

constexpr std::array kNumberKinds{
    KindDigits{FieldKind::kQuantity, &FieldDigits::quantity},
    KindDigits{FieldKind::kPrice, &FieldDigits::price},
    KindDigits{FieldKind::kRate, &FieldDigits::rate},
    KindDigits{FieldKind::kInternal, &FieldDigits::internal_tax},
    KindDigits{FieldKind::kPerception, &FieldDigits::perception},
    KindDigits{FieldKind::kAmount, &FieldDigits::amount},
    KindDigits{FieldKind::kAmountOrEmpty, &FieldDigits::amount},
};

// Names of an answer's data that count thousandths; amounts have that many digits.
constexpr std::string_view kUnits = "unidades";
constexpr std::size_t kAmountDigits = 12;

std::string Decimal(std::string_view digits, int decimals, bool negative) {
  constexpr std::size_t kMost = 18;
  if (!OnlyDigits(digits) || digits.size() > kMost) return {};
  std::int64_t units = 0;
  for (const char c : digits) units = units * 10 + (c - '0');
  return impresora::FormatDecimal(negative ? -units : units, decimals);
}

// A number of just as many digits as the printer has for it; with another count it is left as it stands.
std::string NumberWords(std::string_view raw, Digits digits) {
  const bool negative = raw.starts_with('-');
  const auto rest = raw.substr(negative ? 1 : 0);
  const auto point = rest.find('.');
  if (point != std::string_view::npos) {
    std::string all(rest.substr(0, point));
    all.append(rest.substr(point + 1));
    return Decimal(all, static_cast<int>(rest.size() - point - 1), negative);
  }
  if (rest.size() != static_cast<std::size_t>(digits.integers + digits.decimals)) return {};
  return Decimal(rest, digits.decimals, negative);
}

std::string Parted(std::string_view six, char sign, bool turned) {
  if (six.size() != 6 || !OnlyDigits(six)) return {};
  std::array parts{six.substr(0, 2), six.substr(2, 2), six.substr(4, 2)};
  if (turned) std::swap(parts[0], parts[2]);
  std::string text(parts[0]);
  text.append(1, sign).append(parts[1]).append(1, sign).append(parts[2]);
  return text;
}

}  // namespace

bool OnlyDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string FieldWords(std::string_view raw, const FieldRow& row, const FieldDigits& digits) {
  if (row.kind == FieldKind::kDate) return Parted(raw, '/', true);
  if (row.kind == FieldKind::kTime) return Parted(raw, ':', false);
  for (const KindDigits& kind : kNumberKinds) {
    if (kind.kind == row.kind) return NumberWords(raw, digits.*kind.digits);
  }
  return {};
}

std::string DataWords(std::string_view raw, std::string_view name) {
  if (name == "fecha") return Parted(raw, '/', true);
  if (name == "hora") return Parted(raw, ':', false);
  const bool negative = raw.starts_with('-');
  const auto digits = raw.substr(negative ? 1 : 0);
  if (name == kUnits) return Decimal(digits, 3, negative);
  return digits.size() == kAmountDigits ? Decimal(digits, 2, negative) : std::string();
}

}  // namespace kestra::tool
