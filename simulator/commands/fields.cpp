#include "commands/fields.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "fiscal/calendar.hpp"
#include "wire/control_bytes.hpp"

namespace impresora {
namespace {

std::string_view WithoutSign(std::string_view text) {
  if (!text.empty() && text.front() == '-') text.remove_prefix(1);
  return text;
}

bool OnlyDigits(std::string_view text) {
  return text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Bytes that mean something on the line or to the mechanism have no place in a text.
bool IsPrintable(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code >= 0x20 && byte != kEmptyField;
}

// Longest text that the field takes. Some commands have texts of their own besides those that the
// host gives a length.
int LongestText(const FieldRow& row, const TextLengths& lengths) {
  return row.length == nullptr ? row.limit : std::max(row.limit, lengths.*row.length);
}

// The mark of double width stands before the text and takes none of its room.
bool IsText(std::string_view text, int limit) {
  if (!text.empty() && text.front() == kDoubleWidth) text.remove_prefix(1);
  return text.size() <= static_cast<std::size_t>(limit) &&
         std::all_of(text.begin(), text.end(), IsPrintable);
}

std::optional<std::int64_t> Accept(bool fits) {
  return fits ? std::optional<std::int64_t>(0) : std::nullopt;
}

std::optional<std::int64_t> ReadNumber(std::string_view text, int limit) {
  const auto number = ParseDigits(text, {9, 0}, 0);
  if (!number || !OnlyDigits(text) || *number > limit) return std::nullopt;
  return number;
}

}  // namespace

std::size_t IndexOf(std::span<const FieldRow> rows, std::string_view name) {
  const auto is_it = [name](const FieldRow& row) { return row.name == name; };
  return static_cast<std::size_t>(std::find_if(rows.begin(), rows.end(), is_it) - rows.begin());
}

const Fields::Value* Fields::Find(std::string_view name) const {
  const std::size_t index = IndexOf(rows_, name);
  if (index == rows_.size()) throw std::logic_error("no field " + std::string(name));
  return index < values_.size() ? &values_[index] : nullptr;
}

std::string_view Fields::Text(std::string_view name) const {
  const Value* const value = Find(name);
  return value != nullptr ? std::string_view(value->text) : std::string_view();
}

std::int64_t Fields::Number(std::string_view name) const {
  const Value* const value = Find(name);
  return value != nullptr ? value->number : 0;
}

char Fields::Letter(std::string_view name) const {
  const std::string_view text = Text(name);
  return text.empty() ? '\0' : text.front();
}

void Fields::Append(std::string text, std::int64_t number) {
  values_.push_back({std::move(text), number});
}

std::string_view WithoutEmptyMark(std::string_view text) {
  return text.size() == 1 && text.front() == kEmptyField ? std::string_view() : text;
}

std::optional<std::int64_t> ReadField(std::string_view text, const FieldRow& row,
                                      const Settings& settings) {
  const FieldDigits& digits = settings.digits;
  switch (row.kind) {
    case FieldKind::kText:
      return Accept(IsText(text, LongestText(row, settings.Texts())));
    case FieldKind::kChoice:
      return Accept(text.size() == 1 && row.allowed.find(text.front()) != std::string_view::npos);
    case FieldKind::kNumber:
      return ReadNumber(text, row.limit);
    case FieldKind::kFiller:
      return Accept(OnlyDigits(WithoutSign(text)));
    case FieldKind::kDate:
      return ParseDate(text);
    case FieldKind::kTime:
      return ParseTime(text);
    case FieldKind::kQuantity:
      return ParseDigits(WithoutSign(text), digits.quantity, kQuantityDecimals);
    case FieldKind::kPrice:
      return ParseDigits(text, digits.price, kPriceDecimals);
    case FieldKind::kRate:
      return ParseDigits(text, digits.rate, kRateDecimals);
    case FieldKind::kInternal:
      return ParseDigits(text, digits.internal_tax, kPriceDecimals);
    case FieldKind::kPerception:
      return ParseDigits(text, digits.perception, kMoneyDecimals);
    case FieldKind::kAmountOrEmpty:
      if (text.empty()) return 0;
      [[fallthrough]];
    case FieldKind::kAmount:
      return ParseDigits(text, digits.amount, kMoneyDecimals);
  }
  return std::nullopt;
}

}  // namespace impresora
