// One object of what a till has sent, read key by key. Whatever is wrong is noted with its place, and reading goes on, so
// that the till hears of everything at once.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/decimal.hpp"
#include "base/json.hpp"
#include "base/problem.hpp"
#include "sale/facts.hpp"

namespace puerta {

using Errors = std::vector<FieldError>;

struct TextRule {
  int most = 40;  // of the printer's characters
  bool required = false;
  bool respells = true;
};

struct AmountRule {
  Digits digits;
  bool required = true;
  bool above_zero = true;  // else: zero too
  bool signless = true;
};

class Part {
 public:
  Part(const Json& object, std::string pointer, Errors& errors);

  bool Has(std::string_view key) const;
  const std::string& Pointer() const { return pointer_; }

  // Empty when it is missing or wrong.
  std::string Text(std::string_view key, const TextRule& rule);
  std::optional<Decimal> Amount(std::string_view key, const AmountRule& rule);
  std::optional<std::int64_t> Number(std::string_view key, std::int64_t least, std::int64_t most,
                                     bool required = true);
  bool Flag(std::string_view key);
  Part Object(std::string_view key);  // an empty one when it is missing
  std::vector<Part> List(std::string_view key, std::size_t least, std::size_t most);
  std::vector<std::string> Texts(std::string_view key, std::size_t most, const TextRule& rule);

  // "" is the object itself.
  void Wrong(std::string_view key, std::string message);
  // `below` is a pointer from here: "/cliente/nombre".
  void WrongAt(std::string_view below, std::string message);
  // At the end: keys that nobody has asked for.
  void NoteUnknown();

 private:
  const Json* Find(std::string_view key);
  const Json* Required(std::string_view key, bool required);
  std::string CheckedText(const Json& value, const std::string& pointer, const TextRule& rule);
  void CheckDigits(std::string_view key, const Decimal& value, const AmountRule& rule);
  std::string PointerTo(std::string_view key) const;

  const Json* object_;
  std::string pointer_;
  Errors* errors_;
  std::set<std::string, std::less<>> asked_;
};

}  // namespace puerta
