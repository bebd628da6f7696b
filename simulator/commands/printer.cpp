#include "commands/printer.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "commands/commands.hpp"
#include "commands/strict.hpp"
#include "machine/power.hpp"
#include "machine/status.hpp"
#include "paper/layout.hpp"
#include "wire/control_bytes.hpp"

namespace impresora {
namespace {

// Every field checked against its row; nothing when the host sent too few, too many or wrong ones.
std::optional<Fields> ReadFields(const Packet& packet, const CommandRow& row,
                                 const Settings& settings) {
  const std::size_t count = packet.fields.size();
  if (!packet.well_formed || count < row.required || count > row.fields.size()) {
    return std::nullopt;
  }
  Fields fields(row.fields);
  for (std::size_t i = 0; i < count; ++i) {
    const std::string_view text = WithoutEmptyMark(packet.fields[i]);
    const auto number = ReadField(text, row.fields[i], settings);
    if (!number) return std::nullopt;
    fields.Append(std::string(text), *number);
  }
  return fields;
}

bool Stuck(const MachineFaults& faults) {
  return faults.paper_out || faults.journal_paper_out || faults.receipt_paper_out ||
         faults.cover_open || faults.offline || faults.printer_failure;
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
  if ((row->stages & static_cast<unsigned>(m.GetStage())) == 0) return {Refused(kWrongState)};
  const auto fields = ReadFields(packet, *row, m.settings);
  if (!fields) return {Refused(kInvalidField)};
  if (m.settings.strict) {
    const StrictRule* const rule = BrokenRule({m, *row, *fields});
    if (rule != nullptr) return {{.error = rule->error, .fields = {}, .why = rule->words}};
  }
  if (NeedsPaper(*row, packet) && Stuck(m.faults)) return {.outcome = {}, .mechanism_failed = true};
  return {row->run(m, *fields)};
}

std::uint16_t Join(unsigned bits, unsigned more) {
  return static_cast<std::uint16_t>(bits | more);
}

// A word with some bits shown as somebody wants them. The summary follows the others unless it is
// among these.
std::uint16_t Shown(std::uint16_t bits, ForcedBits forced, std::uint16_t (*summed)(std::uint16_t)) {
  const unsigned changed = (bits | unsigned{forced.on}) & ~unsigned{forced.off};
  const unsigned word = summed(static_cast<std::uint16_t>(changed));
  return static_cast<std::uint16_t>((word | forced.on) & ~unsigned{forced.off});
}

std::uint16_t PrinterShown(const Machine& m, unsigned more = 0) {
  return Shown(Join(m.PrinterBits(), more), m.forced_printer, WithSummaryPrinter);
}

std::uint16_t FiscalShown(const Machine& m, unsigned more = 0) {
  return Shown(Join(m.FiscalBits(), more), m.forced_fiscal, WithSummaryFiscal);
}

// Nobody who wants the receipts waits that long to take them.
constexpr std::size_t kReceiptsKept = 1000;

}  // namespace

Printer::Printer(Settings settings) : machine_(std::move(settings)) {}

Answer Printer::Execute(const Packet& packet, std::int64_t local_seconds) {
  SetTime(local_seconds);
  machine_.command_paper = machine_.paper.Lines().size();
  Attempt attempt = Try(machine_, packet);
  Account(machine_.command_paper);
  Keep();
  const unsigned failure = attempt.mechanism_failed ? kPrinterFailure : 0U;
  return {.printer = PrinterShown(machine_, failure),
          .fiscal = FiscalShown(machine_, attempt.outcome.error),
          .fields = std::move(attempt.outcome.fields),
          .why = attempt.outcome.why};
}

// What the command printed comes off the roll and is kept while its document is open: its copies and
// whoever shows it after a power cut want it whole.
void Printer::Account(std::size_t lines_before) {
  const std::vector<PaperLine>& lines = machine_.paper.Lines();
  const auto printed = static_cast<std::int64_t>(lines.size() - lines_before);
  if (machine_.GetStage() == Stage::kIdle) {
    machine_.printed.clear();
  } else {
    machine_.printed.insert(machine_.printed.end(), lines.end() - printed, lines.end());
  }
  if (machine_.paper_left == kEndlessPaper || printed == 0) return;
  machine_.paper_left = std::max<std::int64_t>(machine_.paper_left - printed, 0);
  if (machine_.paper_left == 0) machine_.faults.paper_out = true;
}

void Printer::SetTime(std::int64_t local_seconds) {
  machine_.now = local_seconds + machine_.clock_offset;
}

void Printer::Keep() {
  if (store_ != nullptr) store_->Save(machine_, machine_.closings, machine_.receipts);
  for (Receipt& receipt : machine_.receipts) receipts_.push_back(std::move(receipt));
  machine_.receipts.clear();
  if (receipts_.size() <= kReceiptsKept) return;
  receipts_.erase(receipts_.begin(), receipts_.end() - static_cast<std::ptrdiff_t>(kReceiptsKept));
}

bool Printer::Set(const Control& control, std::int64_t value) {
  if (!SetControl(machine_, control, value)) return false;
  Keep();
  return true;
}

std::vector<Receipt> Printer::TakeReceipts() {
  return std::exchange(receipts_, {});
}

void Printer::UseMemory(Store& store) {
  store_ = &store;
  if (Load()) CutShort();
  Keep();
}

bool Printer::Load() {
  std::optional<Recall> recall = store_->Load();
  if (!recall) return false;
  static_cast<Books&>(machine_) = std::move(recall->books);
  machine_.closings = std::move(recall->closings);
  return true;
}

void Printer::Restart() {
  machine_.receipts.clear();
  if (store_ != nullptr && !Load()) return;
  if (machine_.settings.strict) ForgetWithoutPower(machine_);
  CutShort();
  if (machine_.settings.strict) Keep();
}

void Printer::CutShort() {
  if (machine_.GetStage() == Stage::kIdle) return;
  PrintPowerCut(machine_);
  machine_.printed.push_back(machine_.paper.Lines().back());
}

std::uint16_t Printer::PrinterWord() const {
  return PrinterShown(machine_);
}

std::uint16_t Printer::FiscalWord() const {
  return FiscalShown(machine_);
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
