#pragma once

#include <array>
#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "probe.hpp"
#include "protocol/answer.hpp"

namespace kestra::tool {

// Questions that print nothing, spend nothing and change nothing.
namespace questions {
inline constexpr std::string_view kCounters =
    "*\x1C"
    "A";
inline constexpr std::string_view kModel =
    "*\x1C"
    "P";
inline constexpr std::string_view kOwner =
    "*\x1C"
    "C";
inline constexpr std::string_view kDay =
    "*\x1C"
    "D";
inline constexpr std::string_view kSummary =
    "*\x1C"
    "N";
inline constexpr std::string_view kClock = "Y";
}  // namespace questions

// Asks by the settings of the current folder; throws Stop when no answer comes, or one that is refused.
Reply AskByTheSettings(std::string_view question);

// Field n of the data, from 1, in UTF-8; empty when there are not so many.
std::string DataField(const Reply& reply, std::size_t n);

// As the driver's readers of the books take an answer.
Fields BookFields(const Reply& reply);

std::uint16_t PrinterWord(const Reply& reply);
std::uint16_t FiscalWord(const Reply& reply);

// Did it turn the command away?
bool IsRefused(const Reply& reply);

// What both words say, in the words of the status report.
struct LitCondition {
  std::string text;
  bool error = false;
};
std::vector<LitCondition> LitConditions(std::uint16_t printer, std::uint16_t fiscal);

// Integers and decimals of one of the printer's numeric fields.
using DigitPair = std::pair<int, int>;

struct ModelData {
  std::string family;
  std::array<DigitPair, 6> digits;  // quantity, price, IVA, internal taxes, amount, perception
  int columns = 0;
  std::string point_of_sale;
  std::string model;
};
// TQ, TF or FC.
bool IsFamily(std::string_view name);

// Nothing when the printer tells its model in another way.
std::optional<ModelData> ReadModel(const Reply& reply);

// The keys of Fiscal.ini for those digits, in their order.
inline constexpr std::array<std::pair<std::string_view, std::string_view>, 6> kDigitKeys = {{
    {"EntCantidad", "DecCantidad"},
    {"EntPrecio", "DecPrecio"},
    {"EntIVA", "DecIVA"},
    {"EntImpInt", "DecImpInt"},
    {"EntDesc", "DecDesc"},
    {"EntPercepcion", "DecPercepcion"},
}};

// The moment of the printer's clock, from the fields YYMMDD and HHMMSS.
std::optional<std::time_t> ReadMoment(std::string_view date, std::string_view time);
// The command that sets it.
std::string SetClockCommand(std::time_t moment);

std::string MomentInWords(std::time_t moment);

// Whether who answers is the virtual printer, which spends no fiscal memory.
bool IsVirtual(Probe& probe);

std::optional<std::int64_t> WholeNumberOf(std::string_view digits);

}  // namespace kestra::tool
