#include "exchange_text.hpp"

#include "calendar.hpp"
#include "commands.hpp"
#include "status.hpp"
#include "text.hpp"

namespace impresora {
namespace {

std::string Value(std::string_view bytes) {
  const std::string_view text = TrimRight(WithoutEmptyMark(bytes));
  return text.empty() ? "vacío" : "'" + Utf8FromHost(text) + "'";
}

std::string CommandText(const Packet& packet) {
  const CommandRow* row = FindCommand(packet.command);
  std::string text(row != nullptr ? std::string(row->name)
                                  : "Comando " + Hex4(packet.command).substr(2));
  text += '(';
  for (std::size_t i = 0; i < packet.fields.size(); ++i) {
    if (i > 0) text += ", ";
    if (row != nullptr && i < row->fields.size()) text.append(row->fields[i].name) += '=';
    text += Value(packet.fields[i]);
  }
  return text += ')';
}

std::string AnswerText(const Answer& answer) {
  std::string text = " -> impresora " + Hex4(answer.printer) + " (" + PrinterWords(answer.printer) +
                     "), fiscal " + Hex4(answer.fiscal) + " (" + FiscalWords(answer.fiscal) + ")";
  for (std::size_t i = 0; i < answer.fields.size(); ++i) {
    text += i == 0 ? "; respuesta " : ", ";
    text += Value(answer.fields[i]);
  }
  return text;
}

}  // namespace

std::string Describe(const Exchange& exchange) {
  const std::string time = PrintedTime(exchange.moment);
  if (exchange.kind == ExchangeKind::kDamaged) return time + " trama dañada -> NAK";
  std::string text = time + " sec " + std::to_string(exchange.packet.sequence) + " ";
  if (exchange.kind == ExchangeKind::kRepeated) text += "(repetido, no se ejecuta) ";
  return text + CommandText(exchange.packet) + AnswerText(exchange.answer);
}

}  // namespace impresora
