#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "commands/fields.hpp"
#include "machine/machine.hpp"

namespace impresora {

// What a command came to: error bits of the fiscal word (none when it was carried out) and the
// data fields of its answer.
struct Outcome {
  std::uint16_t error = 0;
  std::vector<std::string> fields;
  std::string_view why = {};  // for people, where the bits alone leave them guessing
};

inline Outcome Refused(std::uint16_t bit) {
  return {.error = bit, .fields = {}};
}

inline Outcome Answered(std::vector<std::string> fields) {
  return {.error = 0, .fields = std::move(fields)};
}

// Whether a command needs paper and a working mechanism. Some commands print or only ask, as their
// first field says: "N" (do not print) and "Q" (query) need no paper. Questions print nothing and
// change nothing.
enum class Printing { kNever, kAlways, kUnlessAsking, kQuestion };

// A list that stands within its row.
template <class Item, std::size_t Most>
class ShortList {
 public:
  constexpr ShortList() = default;
  constexpr ShortList(std::initializer_list<Item> items) : count_(items.size()) {
    std::copy(items.begin(), items.end(), items_.begin());
  }

  constexpr const Item* begin() const { return items_.data(); }
  constexpr const Item* end() const { return items_.data() + count_; }
  constexpr std::size_t size() const { return count_; }
  constexpr const Item& operator[](std::size_t index) const { return items_[index]; }
  constexpr operator std::span<const Item>() const { return {begin(), end()}; }  // NOLINT

 private:
  std::array<Item, Most> items_{};
  std::size_t count_ = 0;
};

inline constexpr std::size_t kMostFields = 19;
inline constexpr std::size_t kMostAnswers = 5;
inline constexpr std::size_t kMostData = 11;

// What the data of an answer are called, in order. Some commands answer with what one of their
// fields asks for.
struct AnswerRow {
  std::string_view field = {};  // the one that decides; empty for an answer that always fits
  char letter = 0;              // what it holds
  ShortList<std::string_view, kMostData> names;
};

// All of a command in one place. Whatever names a command, its fields or its answers takes the names
// from here.
struct CommandRow {
  std::uint8_t byte;
  std::string_view name;
  std::string_view word = {};  // what a person calls it, whatever the family: several may share it
  ShortList<FieldRow, kMostFields> fields = {};
  std::size_t required = 0;  // fields that may not be left out
  unsigned families;
  unsigned stages;
  Printing printing;
  ShortList<AnswerRow, kMostAnswers> answers = {};  // the first that fits; none: its status alone
  Outcome (*run)(Machine&, const Fields&);
};

// ---- Words for the rows ----

// A text whose longest the printer is set up with; `least` bytes always fit, for what hosts put
// there on their own.
constexpr FieldRow Text(std::string_view name, int TextLengths::*length, int least = 0) {
  return {.name = name, .kind = FieldKind::kText, .limit = least, .length = length};
}

constexpr FieldRow Text(std::string_view name, int limit) {
  return {.name = name, .kind = FieldKind::kText, .limit = limit};
}

constexpr FieldRow Choice(std::string_view name, std::string_view allowed) {
  return {.name = name, .kind = FieldKind::kChoice, .allowed = allowed};
}

constexpr FieldRow Number(std::string_view name, int limit) {
  return {.name = name, .kind = FieldKind::kNumber, .limit = limit};
}

constexpr FieldRow Field(std::string_view name, FieldKind kind) {
  return {.name = name, .kind = kind};
}

inline constexpr int kLooseText = 26;    // a line of text, last words
inline constexpr int kPaymentText = 20;  // payments, perceptions, roundings

inline constexpr unsigned kAnyFamily = kOnTickets | kOnRolls | kOnForms;
inline constexpr unsigned kTicketFamilies = kOnTickets | kOnRolls;
inline constexpr unsigned kInvoiceFamilies = kOnRolls | kOnForms;

constexpr unsigned When(std::initializer_list<Stage> stages) {
  unsigned bits = 0;
  for (const Stage stage : stages) bits |= static_cast<unsigned>(stage);
  return bits;
}

inline constexpr unsigned kWhenIdle = When({Stage::kIdle});
inline constexpr unsigned kInTicket = When({Stage::kTicketItems, Stage::kTicketPayments});
inline constexpr unsigned kInInvoice = When({Stage::kInvoiceItems, Stage::kInvoicePayments});
inline constexpr unsigned kBetweenSheets = When({Stage::kBetweenSheets});
inline constexpr unsigned kInNonFiscal = When({Stage::kNonFiscal});
inline constexpr unsigned kAtAnyTime =
    kWhenIdle | kInTicket | kInInvoice | kBetweenSheets | kInNonFiscal;

}  // namespace impresora
