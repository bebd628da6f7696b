#include "trace/exchange_text.hpp"

#include <algorithm>
#include <span>

#include "commands/commands.hpp"
#include "fiscal/amounts.hpp"
#include "fiscal/calendar.hpp"
#include "machine/status.hpp"
#include "text/text.hpp"

namespace impresora {
namespace {

constexpr std::size_t kNameColumns = 22;
constexpr std::size_t kValueColumns = 24;

// Cut with a sign that something is missing.
std::string Cut(std::string_view utf8, std::size_t columns) {
  if (Columns(utf8) <= columns) return std::string(utf8);
  return std::string(CutToColumns(utf8, columns - 1)) + "…";
}

std::string LeftAligned(std::string_view utf8, std::size_t columns) {
  std::string text = Cut(utf8, columns);
  text.append(columns - Columns(text), ' ');
  return text;
}

std::string RightAligned(std::string_view utf8, std::size_t columns) {
  const std::size_t taken = Columns(utf8);
  return std::string(columns > taken ? columns - taken : 0, ' ') + std::string(utf8);
}

bool SpeaksForItself(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' ||
         c == '.';
}

std::string Quoted(std::string_view value) {
  std::string text = Cut(value, kValueColumns);
  if (std::all_of(text.begin(), text.end(), SpeaksForItself)) return text;
  return "'" + text + "'";
}

// Empty fields are only counted: most of an invoice's nineteen are.
std::string Listed(const std::vector<NamedValue>& fields) {
  std::string text;
  std::size_t empty = 0;
  for (const NamedValue& field : fields) {
    if (field.value.empty()) {
      ++empty;
      continue;
    }
    text += " " + field.name + "=" + Quoted(field.value);
  }
  if (empty > 0) text += " (" + std::to_string(empty) + (empty == 1 ? " vacío)" : " vacíos)");
  return text;
}

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
  return text;
}

std::string_view Mark(const Exchange& exchange) {
  if (exchange.kind == ExchangeKind::kDamaged) return "NAK";
  if (exchange.kind == ExchangeKind::kRepeated) return "rep";
  if (exchange.kind == ExchangeKind::kLost) return "---";
  return ((exchange.answer.printer | exchange.answer.fiscal) & kSummary) != 0 ? "ERR" : "ok ";
}

std::string Beginning(const Exchange& exchange) {
  const Micros took = exchange.answered_at - exchange.received_at;
  return RightAligned(std::to_string(exchange.number), 4) + " " + PrintedTime(exchange.moment) +
         " " + RightAligned(Duration(took), 7) + " ";
}

std::string AnswerText(const Packet& packet, const Answer& answer) {
  const std::string data = Listed(NamedAnswer(packet, answer));
  return " -> imp " + Hex4(answer.printer) + " " + PrinterWords(answer.printer) + " · fis " +
         Hex4(answer.fiscal) + " " + FiscalWords(answer.fiscal) + (data.empty() ? "" : " ·") + data;
}

template <typename Name>
std::vector<NamedValue> Named(const std::vector<std::string>& fields, std::string_view otherwise,
                              std::size_t known, Name name) {
  std::vector<NamedValue> named;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const std::string number = std::string(otherwise) + " " + std::to_string(i + 1);
    named.push_back({i < known ? std::string(name(i)) : number,
                     Utf8FromHost(TrimRight(WithoutEmptyMark(fields[i])))});
  }
  return named;
}

}  // namespace

std::string CommandMark(std::uint8_t command) {
  const bool shows = command > 0x20 && command < 0x7F;
  return shows ? std::string(1, static_cast<char>(command)) : Hex4(command).substr(2);
}

std::string CommandName(std::uint8_t command) {
  const CommandRow* row = FindCommand(command);
  return row != nullptr ? std::string(row->name) : "Comando " + Hex4(command).substr(2);
}

std::vector<NamedValue> NamedFields(const Packet& packet) {
  const CommandRow* row = FindCommand(packet.command);
  std::span<const FieldRow> rows;
  if (row != nullptr) rows = row->fields;
  return Named(packet.fields, "campo", rows.size(), [&](std::size_t i) { return rows[i].name; });
}

std::vector<NamedValue> NamedAnswer(const Packet& packet, const Answer& answer) {
  const auto names = AnswerNames(packet);
  return Named(answer.fields, "dato", names.size(), [&](std::size_t i) { return names[i]; });
}

std::string Duration(Micros took) {
  constexpr std::int64_t kMillisecond = 1000;
  constexpr std::int64_t kSecond = 1'000'000;
  const auto tenths = [](std::int64_t value, std::int64_t unit) {
    return FormatDecimal(DivideRounded(value * 10, unit), 1);
  };
  const std::int64_t micros = std::max<std::int64_t>(took.count(), 0);
  if (micros < 10 * kMillisecond) return tenths(micros, kMillisecond) + " ms";
  if (micros < kSecond) return std::to_string(DivideRounded(micros, kMillisecond)) + " ms";
  return tenths(micros, kSecond) + " s";
}

std::string HexBytes(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    if (!text.empty()) text += ' ';
    text += Hex4(static_cast<std::uint8_t>(byte)).substr(2);
  }
  return text;
}

std::string Describe(const Exchange& exchange) {
  std::string text = Beginning(exchange);
  const Packet& packet = exchange.packet;
  const bool understood = exchange.kind != ExchangeKind::kDamaged;
  text += RightAligned(understood ? std::to_string(packet.sequence) : "-", 3) + " " +
          LeftAligned(understood ? CommandMark(packet.command) : "-", 2) + " " +
          LeftAligned(understood ? CommandName(packet.command) : "trama dañada", kNameColumns) +
          " " + std::string(Mark(exchange));
  if (understood) text += Listed(NamedFields(packet));
  if (exchange.kind <= ExchangeKind::kRepeated) text += AnswerText(packet, exchange.answer);
  if (!exchange.answer.why.empty()) text.append(" | estricta: ").append(exchange.answer.why);
  if (!exchange.faults.empty()) text += " | falla: " + Joined(exchange.faults);
  return text;
}

}  // namespace impresora
