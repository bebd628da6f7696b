#include "commands/commands.hpp"

#include <algorithm>
#include <array>
#include <vector>

#include "commands/families.hpp"

namespace impresora {
namespace {

constexpr std::array kFamilies{DeviceCommands,    DocumentCommands, ItemCommands,
                               NonFiscalCommands, ReportCommands,   TotalsCommands};

std::vector<CommandRow> Collect() {
  std::vector<CommandRow> rows;
  for (const auto family : kFamilies) rows.insert(rows.end(), family().begin(), family().end());
  const auto before = [](const CommandRow& row, const CommandRow& other) {
    return row.byte < other.byte;
  };
  std::sort(rows.begin(), rows.end(), before);
  return rows;
}

char FirstLetter(const Packet& packet) {
  const std::string_view first = packet.fields.empty() ? std::string_view() : packet.fields[0];
  return first.empty() ? '\0' : first.front();
}

bool Fits(const AnswerRow& answer, const CommandRow& row, const Packet& packet) {
  if (answer.field.empty()) return true;
  const std::size_t index = IndexOf(row.fields, answer.field);
  return index < packet.fields.size() &&
         packet.fields[index] == std::string_view(&answer.letter, 1);
}

}  // namespace

std::span<const CommandRow> Commands() {
  static const std::vector<CommandRow> rows = Collect();
  return rows;
}

const CommandRow* FindCommand(std::uint8_t byte) {
  const auto before = [](const CommandRow& row, std::uint8_t wanted) { return row.byte < wanted; };
  const auto rows = Commands();
  const auto found = std::lower_bound(rows.begin(), rows.end(), byte, before);
  return found != rows.end() && found->byte == byte ? &*found : nullptr;
}

bool NeedsPaper(const CommandRow& row, const Packet& packet) {
  if (row.printing != Printing::kUnlessAsking) return row.printing == Printing::kAlways;
  const char letter = FirstLetter(packet);
  return letter != 'N' && letter != 'Q';
}

bool OnlyAsks(const Packet& packet) {
  const CommandRow* const row = FindCommand(packet.command);
  if (row == nullptr) return false;
  if (row->printing != Printing::kUnlessAsking) return row->printing == Printing::kQuestion;
  return !NeedsPaper(*row, packet);
}

std::span<const std::string_view> AnswerNames(const Packet& packet) {
  const CommandRow* const row = FindCommand(packet.command);
  if (row == nullptr) return {};
  for (const AnswerRow& answer : row->answers) {
    if (Fits(answer, *row, packet)) return answer.names;
  }
  return {};
}

}  // namespace impresora
