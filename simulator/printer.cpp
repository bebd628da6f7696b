#include "printer.hpp"

#include <utility>

#include "commands.hpp"
#include "status.hpp"
#include "wire.hpp"

namespace impresora {
namespace {

// Every field checked against its row; nothing when the host sent too few, too many or wrong ones.
std::optional<Fields> ReadFields(const Packet& packet, const CommandRow& row,
                                 const FieldDigits& digits) {
  const std::size_t count = packet.fields.size();
  if (!packet.well_formed || count < row.required || count > row.fields.size()) {
    return std::nullopt;
  }
  Fields fields;
  for (std::size_t i = 0; i < count; ++i) {
    const std::string_view text = WithoutEmptyMark(packet.fields[i]);
    const auto number = ReadField(text, row.fields[i], digits);
    if (!number) return std::nullopt;
    fields.Append(std::string(text), *number);
  }
  return fields;
}

bool Stuck(const Faults& faults) {
  return faults.paper_out || faults.offline || faults.printer_failure;
}

bool Prints(const CommandRow& row, const Fields& fields) {
  if (row.printing != Printing::kUnlessAsking) return row.printing == Printing::kAlways;
  return fields.Letter(0) != 'N' && fields.Letter(0) != 'Q';
}

// A command that cannot print is not carried out, and its answer says that the mechanism failed:
// a host that sends it again once there is paper must not sell twice.
struct Attempt {
  Outcome outcome;
  bool mechanism_failed = false;
};

Attempt Try(Machine& m, const Packet& packet) {
  const CommandRow* row = FindCommand(packet.command);
  const auto family = static_cast<unsigned>(m.settings.family);
  if (row == nullptr || (row->families & family) == 0) return {Refused(kUnknownCommand)};
  if ((row->stages & static_cast<unsigned>(m.stage())) == 0) return {Refused(kWrongState)};
  const auto fields = ReadFields(packet, *row, m.settings.digits);
  if (!fields) return {Refused(kInvalidField)};
  if (Prints(*row, *fields) && Stuck(m.faults)) return {.outcome = {}, .mechanism_failed = true};
  return {row->run(m, *fields)};
}

std::uint16_t Join(unsigned bits, unsigned more) {
  return static_cast<std::uint16_t>(bits | more);
}

}  // namespace

Printer::Printer(Settings settings) : machine_(std::move(settings)) {}

Answer Printer::Execute(const Packet& packet, std::int64_t local_seconds) {
  machine_.now = local_seconds + machine_.clock_offset;
  Attempt attempt = Try(machine_, packet);
  const unsigned failure = attempt.mechanism_failed ? kPrinterFailure : 0U;
  return {.printer = WithSummaryPrinter(Join(machine_.PrinterBits(), failure)),
          .fiscal = WithSummaryFiscal(Join(machine_.FiscalBits(), attempt.outcome.error)),
          .fields = std::move(attempt.outcome.fields)};
}

std::chrono::milliseconds Printer::WorkTime(std::uint8_t command) const {
  return std::chrono::milliseconds(machine_.settings.work_milliseconds.at(command));
}

std::string FrameAnswer(const Packet& packet, const Answer& answer) {
  std::string body(1, static_cast<char>(packet.command));
  body.append(1, kFs).append(Hex4(answer.printer));
  body.append(1, kFs).append(Hex4(answer.fiscal));
  for (const std::string& field : answer.fields) body.append(1, kFs).append(field);
  return Frame(packet.sequence, body);
}

}  // namespace impresora
