// What stands behind the names of actions.
#include <algorithm>
#include <array>
#include <optional>

#include "commands/commands.hpp"
#include "faults/rule_reader.hpp"
#include "text/utf8.hpp"

namespace impresora {
namespace {

struct Unit {
  std::string_view word;
  std::int64_t micros_per_thousandth;
};

constexpr std::array<Unit, 6> kUnits{{
    {"ms", 1},
    {"s", 1'000},
    {"seg", 1'000},
    {"segundos", 1'000},
    {"segundo", 1'000},
    {"min", 60'000},
}};

constexpr std::int64_t kLongestTime = 24LL * 3600 * 1'000'000;
constexpr std::int64_t kFarthest = 9'999;  // bytes and fields of one answer

constexpr std::string_view kTimeWords = "un tiempo de hasta un día: «50 ms», «1.5 s», «2 min»";
constexpr std::string_view kByteNumberWords =
    "el número de un byte: desde 1, desde -1 hacia atrás, o «al azar»";
constexpr std::string_view kFieldWords =
    "un campo: «impresora», «fiscal», o el número de un dato, desde 1 o desde -1 hacia atrás";
constexpr std::string_view kBytesWords = "bytes: «4102» o «\"texto\"»";
constexpr std::string_view kCommandWords =
    "un comando: su carácter, dos dígitos hexadecimales o su nombre entre comillas";
constexpr std::string_view kLampWords =
    "un bit: «fiscal_bateria_baja», «impresora 0008» o «fiscal 0004»";

std::optional<std::uint8_t> CommandNamed(std::string_view name) {
  const std::string wanted = Fold(name);
  for (const CommandRow& row : Commands()) {
    if (Fold(row.name) == wanted) return row.byte;
  }
  return std::nullopt;
}

std::uint8_t Code(char c) {
  return static_cast<std::uint8_t>(c);
}

// "ms", and the digits before it when both are one word.
const Unit* UnitBehind(std::string_view& word) {
  for (const Unit& unit : kUnits) {
    const std::size_t digits = word.size() - std::min(word.size(), unit.word.size());
    if (word.substr(digits) != unit.word) continue;
    const bool whole = digits == 0 || (word[digits - 1] >= '0' && word[digits - 1] <= '9');
    if (!whole) continue;
    word = word.substr(0, digits);
    return &unit;
  }
  return nullptr;
}

}  // namespace

std::int64_t RuleReader::Integer(std::int64_t least, std::int64_t most, std::string_view expected) {
  const auto value = ReadInteger(Here().folded);
  if (!value || *value < least || *value > most) Fail(expected);
  ++at_;
  return *value;
}

Place RuleReader::ByteNumber() {
  if (Take("al")) {
    Need("azar");
    return kAnyPlace;
  }
  if (At("0")) Fail(kByteNumberWords);
  return Integer(-kFarthest, kFarthest, kByteNumberWords);
}

Place RuleReader::BytePlace() {
  Need("byte");
  return ByteNumber();
}

std::int64_t RuleReader::Field() {
  if (Take("impresora")) return kPrinterWordField;
  if (Take("fiscal")) return kFiscalWordField;
  if (At("0")) Fail(kFieldWords);
  return Integer(-kFarthest, kFarthest, kFieldWords);
}

// The unit is a word of its own or stands close behind the digits.
Micros RuleReader::Time() {
  std::string_view digits = Here().folded;
  const Unit* unit = UnitBehind(digits);
  const bool apart = unit == nullptr;
  if (apart && at_ + 1 < words_.size()) {
    std::string_view next = words_[at_ + 1].folded;
    unit = UnitBehind(next);
    if (!next.empty()) unit = nullptr;
  }
  const auto thousandths = ReadThousandths(digits);
  if (unit == nullptr || !thousandths) Fail(kTimeWords);
  if (*thousandths > kLongestTime / unit->micros_per_thousandth) Fail(kTimeWords);
  at_ += apart ? 2 : 1;
  return Micros(*thousandths * unit->micros_per_thousandth);
}

std::string RuleReader::Bytes() {
  if (Here().kind == RuleWord::Kind::kText) return Next().raw;
  const auto bytes = ReadHexBytes(Here().raw);
  if (Here().kind != RuleWord::Kind::kWord || !bytes) Fail(kBytesWords);
  ++at_;
  return *bytes;
}

char RuleReader::Byte() {
  const auto bytes = ReadHexBytes(Here().raw);
  if (!bytes || bytes->size() != 1) Fail("un byte en dos dígitos hexadecimales");
  ++at_;
  return bytes->front();
}

// One, or by its word those of every family: "ítem", "cierre".
void RuleReader::ReadCommands() {
  const std::size_t before = selector_.commands.size();
  for (const CommandRow& row : Commands()) {
    if (!row.word.empty() && At(Fold(row.word))) selector_.commands.push_back(row.byte);
  }
  if (selector_.commands.size() > before) {
    ++at_;
  } else {
    selector_.commands.push_back(Command());
  }
}

std::uint8_t RuleReader::Command() {
  using Kind = RuleWord::Kind;
  const RuleWord& here = Here();
  std::optional<std::uint8_t> byte;
  if (here.kind == Kind::kText) byte = CommandNamed(here.raw);
  if (here.kind == Kind::kText && here.raw.size() == 1) byte = Code(here.raw.front());
  if (here.kind == Kind::kWord && here.raw.size() == 1) byte = Code(here.raw.front());
  const auto hex = ReadHexBytes(here.raw);
  if (here.kind == Kind::kWord && hex && hex->size() == 1) byte = Code(hex->front());
  // A byte that cannot be shown would make another rule of the text that people see.
  const std::string written(line_.substr(here.begin, here.end - here.begin));
  if (!byte || CleanUtf8(written) != written) Fail(kCommandWords);
  ++at_;
  return *byte;
}

std::uint16_t RuleReader::LampBits(Word& word) {
  if (const Lamp* lamp = FindLamp(Here().folded)) {
    ++at_;
    word = lamp->word;
    return lamp->bit;
  }
  word = At("fiscal") ? Word::kFiscal : Word::kPrinter;
  if (!Take("fiscal") && !Take("impresora")) Fail(kLampWords);
  const auto bits = ReadHexBytes(Here().raw);
  if (!bits || bits->size() != 2) Fail("cuatro dígitos hexadecimales");
  ++at_;
  return static_cast<std::uint16_t>(Code((*bits)[0]) << 8U | Code((*bits)[1]));
}

// "sin_papel", "sin_papel = no", "papel = 3", "reloj = "2026-11-21 10:00:00"".
void RuleReader::ControlAndValue(Action& action) {
  action.control = FindControl(Here().folded);
  if (action.control == nullptr) Fail("un control: «sin_papel», «fuera_de_linea», «papel»…");
  ++at_;
  action.number = 1;
  if (action.control->kind == ControlKind::kSwitch && AtEndOfAction()) return;
  Need("=");
  const RuleWord& value = Here();
  const std::string& text = value.kind == RuleWord::Kind::kText ? value.raw : value.folded;
  const auto number = ReadControl(*action.control, text);
  if (!number) Fail("un valor para " + std::string(action.control->key));
  action.number = *number;
  ++at_;
}

}  // namespace impresora
