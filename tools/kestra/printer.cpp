#include "printer.hpp"

#include <algorithm>
#include <charconv>

#include "base/code_page.hpp"
#include "base/failure.hpp"
#include "command.hpp"
#include "dialogs/conditions.hpp"
#include "protocol/books.hpp"
#include "settings.hpp"

namespace kestra::tool {
namespace {

constexpr std::array<std::string_view, 3> kFamilies = {"TQ", "TF", "FC"};
constexpr std::string_view kVirtualOwner = "30-00000000-7";

std::uint16_t HexOf(const std::string& digits) {
  std::uint16_t word = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), word, 16);
  return word;
}

std::optional<DigitPair> PairOf(std::string_view field) {
  if (field.size() != 2 || !WholeNumberOf(field)) return std::nullopt;
  return DigitPair(field[0] - '0', field[1] - '0');
}

std::string Formed(std::time_t moment, const char* form) {
  std::array<char, 32> text{};
  const auto length = std::strftime(text.data(), text.size(), form, std::localtime(&moment));
  return {text.data(), length};
}

int TwoDigits(std::string_view text, std::size_t at) {
  return (text[at] - '0') * 10 + (text[at + 1] - '0');
}

}  // namespace

Reply AskByTheSettings(std::string_view question) {
  const Way way = ReadWay();
  const auto device = Utf8FromAnsi(DeviceOf(way));
  try {
    auto reply = Probe(PortOf(way)).Ask(question);
    if (reply.answered) return reply;
  } catch (const Failure& failure) {
    throw Stop(Exit::kNoAnswer, Utf8FromAnsi(failure.Description()) + "; ver kestra diagnostico");
  }
  throw Stop(Exit::kNoAnswer, "la impresora no contesta en " + device + "; ver kestra diagnostico");
}

std::string DataField(const Reply& reply, std::size_t n) {
  const auto place = n + 1;
  return place < reply.fields.size() ? Utf8FromAnsi(reply.fields[place]) : std::string();
}

Fields BookFields(const Reply& reply) {
  Fields fields;
  const auto count = std::min(fields.size(), reply.fields.size());
  std::copy_n(reply.fields.begin(), count, fields.begin());
  return fields;
}

std::uint16_t PrinterWord(const Reply& reply) {
  return HexOf(reply.fields[0]);
}

std::uint16_t FiscalWord(const Reply& reply) {
  return HexOf(reply.fields[1]);
}

bool IsRefused(const Reply& reply) {
  return (FiscalWord(reply) & fiscal_word::kRefusal) != 0;
}

std::vector<LitCondition> LitConditions(std::uint16_t printer, std::uint16_t fiscal) {
  std::vector<LitCondition> lit;
  for (const auto& condition : kConditions) {
    const bool own = condition.word == StatusWord::kPrinter;
    // The bit of "out of paper" is one above its place in the library's record.
    const auto bit = own && condition.slot == kOutOfPaper ? condition.slot + 1 : condition.slot;
    const unsigned word = own ? printer : fiscal;
    if ((word >> bit & 1u) == 0) continue;
    lit.push_back({.text = Utf8FromAnsi(condition.text),
                   .error = condition.severity == Severity::kError || condition.failure});
  }
  return lit;
}

bool IsFamily(std::string_view name) {
  return std::find(kFamilies.begin(), kFamilies.end(), name) != kFamilies.end();
}

std::optional<ModelData> ReadModel(const Reply& reply) {
  constexpr std::size_t kFirstDigits = 2;
  ModelData data;
  data.family = DataField(reply, 1);
  if (!IsFamily(data.family)) return std::nullopt;
  for (std::size_t i = 0; i < data.digits.size(); ++i) {
    const auto pair = PairOf(DataField(reply, kFirstDigits + i));
    if (!pair) return std::nullopt;
    data.digits[i] = *pair;
  }
  data.columns = static_cast<int>(WholeNumberOf(DataField(reply, 8)).value_or(0));
  data.point_of_sale = DataField(reply, 10);
  data.model = DataField(reply, 11);
  return data;
}

std::optional<std::time_t> ReadMoment(std::string_view date, std::string_view time) {
  constexpr std::size_t kDigits = 6;
  if (date.size() != kDigits || time.size() != kDigits) return std::nullopt;
  if (!WholeNumberOf(date) || !WholeNumberOf(time)) return std::nullopt;
  std::tm moment{};
  moment.tm_year = 100 + TwoDigits(date, 0);
  moment.tm_mon = TwoDigits(date, 2) - 1;
  moment.tm_mday = TwoDigits(date, 4);
  moment.tm_hour = TwoDigits(time, 0);
  moment.tm_min = TwoDigits(time, 2);
  moment.tm_sec = TwoDigits(time, 4);
  moment.tm_isdst = -1;
  const auto seconds = std::mktime(&moment);
  return seconds == -1 ? std::nullopt : std::optional(seconds);
}

std::string SetClockCommand(std::time_t moment) {
  return Formed(moment, "X\x1C%y%m%d\x1C%H%M%S");
}

std::string MomentInWords(std::time_t moment) {
  return Formed(moment, "%d/%m/%Y %H:%M:%S");
}

bool IsVirtual(Probe& probe) {
  const auto reply = probe.Ask(questions::kOwner);
  return reply.answered && DataField(reply, 1) == kVirtualOwner;
}

std::optional<std::int64_t> WholeNumberOf(std::string_view digits) {
  std::int64_t number = 0;
  const char* const end = digits.data() + digits.size();
  const auto [rest, error] = std::from_chars(digits.data(), end, number);
  return error == std::errc() && rest == end ? std::optional(number) : std::nullopt;
}

}  // namespace kestra::tool
