#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "machine/settings.hpp"

namespace impresora {

enum class FieldKind {
  kText,        // up to `limit` bytes, or more if `length` says so
  kChoice,      // one letter out of `allowed`
  kNumber,      // plain decimal, up to `limit`
  kFiller,      // digits or empty; accepted and not used
  kDate,        // YYMMDD
  kTime,        // HHMMSS
  kQuantity,    // digits with implied decimals from here on
  kPrice,       //
  kRate,        //
  kInternal,    //
  kPerception,  //
  kAmount,      //
  kAmountOrEmpty,
};

struct FieldRow {
  std::string_view name;
  FieldKind kind;
  int limit = 0;
  std::string_view allowed = {};
  int TextLengths::*length = nullptr;
};

// Where the field of that name stands among the rows, or their count.
std::size_t IndexOf(std::span<const FieldRow> rows, std::string_view name);

// A command's fields once checked, by the names of their rows: texts as bytes, numbers as the units of
// amounts.hpp, dates and times as seconds. A field that the host left out reads as empty or zero.
class Fields {
 public:
  explicit Fields(std::span<const FieldRow> rows) : rows_(rows) {}

  std::string_view Text(std::string_view name) const;
  std::int64_t Number(std::string_view name) const;
  char Letter(std::string_view name) const;
  bool Empty(std::string_view name) const { return Text(name).empty(); }

  // The next one.
  void Append(std::string text, std::int64_t number);

 private:
  struct Value {
    std::string text;
    std::int64_t number;
  };
  const Value* Find(std::string_view name) const;

  std::span<const FieldRow> rows_;
  std::vector<Value> values_;
};

// The bytes of one field turned into a value; nothing when its row does not allow them. The byte
// that stands for an empty field reads as the empty text.
std::optional<std::int64_t> ReadField(std::string_view text, const FieldRow& row,
                                      const Settings& settings);

std::string_view WithoutEmptyMark(std::string_view text);

}  // namespace impresora
