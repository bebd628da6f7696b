// The virtual printer at the end of a line on which anything may come: commands with fields that are
// theirs and fields that are not, broken frames, noise, changes by hand, the power going.
#include <string>

#include "commands/commands.hpp"
#include "fuzz/input.hpp"
#include "fuzz/till.hpp"
#include "machine/controls.hpp"
#include "machine/status.hpp"
#include "simulator/host.hpp"
#include "wire/control_bytes.hpp"

namespace impresora::fuzzing {
namespace {

using fuzz::Input;
using fuzz::Require;
using prueba::Body;
using prueba::kEmpty;

constexpr int kMostSteps = 16;

constexpr std::array<std::string_view, 28> kTexts{
    "",     "\x7F",     "0",         "1",      "9",      "0000",   "2100",
    "1000", "99999999", "999999999", "-001",   "1.5",    "C",      "T",
    "A",    "M",        "R",         "m",      "D",      "O",      "P",
    "N",    "Pan",      "00001",     "261121", "991231", "103000", "20123456786"};
constexpr std::array kFamilies{Family::kTicket, Family::kTicketInvoice, Family::kForm};
constexpr std::array kClosingsLeft{1825, 31, 1, 0};

// Whether the printer's first answer has an error bit that is about the command.
bool RefusedIn(std::string_view heard) {
  constexpr unsigned kAboutTheCommand = kUnknownCommand | kInvalidField | kWrongState | kOverflow;
  if (heard.size() < 13 || heard[0] != kStx) return false;
  return (std::stoul(std::string(heard.substr(9, 4)), nullptr, 16) & kAboutTheCommand) != 0;
}

// No fault rules: every byte that the printer sends is as it should be.
class Play {
 public:
  explicit Play(Input& input) : input_(input), till_(ReadSettings(input), ReadLine(input)) {}

  void Run() {
    for (int i = 0; i < kMostSteps && !input_.Empty(); ++i) Step();
    till_.CheckBooks();
  }

 private:
  using Handler = void (Play::*)();

  static Settings ReadSettings(Input& input) {
    Settings settings;
    settings.family = input.Pick(kFamilies);
    settings.closings_left = input.Pick(kClosingsLeft);
    settings.strict_cuit = input.Flag();
    return settings;
  }

  static SessionSettings ReadLine(Input& input) {
    return {.baud = input.Below(16) == 1 ? 9600 : 0};
  }

  void Step() {
    static constexpr std::array<Handler, 16> kSteps{
        &Play::Command, &Play::Command, &Play::Command, &Play::Command,
        &Play::Command, &Play::Command, &Play::Command, &Play::Likely,
        &Play::Likely,  &Play::AnyBody, &Play::Noise,   &Play::Damaged,
        &Play::Pass,    &Play::Control, &Play::Lamp,    &Play::Power};
    (this->*input_.Pick(kSteps))();
  }

  // Fields as the command's row has them, now and then something else.
  std::string ReadBody(const CommandRow& row) {
    std::string body(1, static_cast<char>(row.byte));
    for (const FieldRow& field : row.fields) {
      const auto choice = input_.Byte();
      if (choice == 255) break;
      body += kFs;
      if (field.kind == FieldKind::kChoice && choice < 200) {
        body += field.allowed[choice % field.allowed.size()];
      } else if (choice < 220) {
        body += kTexts[choice % kTexts.size()];
      } else {
        body += input_.Text(14);
      }
    }
    return body;
  }

  void Command() {
    const auto rows = Commands();
    Execute(ReadBody(rows[input_.Below(rows.size())]));
  }

  // What the everyday document is made of, so that many of them come about.
  void Likely() {
    static const std::array kLikely{
        Body({"@", "C"}),
        Body({"B", "Pan", "1000", "1000", "2100", "M", "1", "0", "0"}),
        Body({"E", "T"}),
        Body({"`", "T",    "C",           "A", "1",       "F",    "12",   "I",    "I",    "Juan",
              " ", "CUIT", "20123456786", "N", "Calle 1", kEmpty, kEmpty, kEmpty, kEmpty, "C"}),
        Body({"b", "Pan", "1000", "1000", "2100", "M", "1", "0", kEmpty, kEmpty, kEmpty, kEmpty,
              "0"}),
        Body({"e", "T", "A", kEmpty}),
        Body({"D", "Efectivo", "1000", "T"}),
        Body({"9", "Z", "P"}),
    };
    Execute(input_.Pick(kLikely));
  }

  void AnyBody() { Execute("B" + std::string(input_.Text(30))); }
  void Noise() { Hear(till_.Send(input_.Text(24))); }

  void Damaged() {
    const std::string frame = Frame(0x21, Body({"@", "C"}));
    const auto place = input_.Below(frame.size());
    std::string spoilt = frame;
    spoilt[place] = static_cast<char>(input_.Byte());
    const auto before = till_.session.GetPrinter().GetMachine().finished;
    Hear(till_.Send(spoilt));
    Require(spoilt == frame || till_.session.GetPrinter().GetMachine().finished == before,
            "a damaged frame closes nothing");
  }

  void Pass() { till_.Pass(std::int64_t{input_.Byte()} * 1800); }

  void Control() {
    touched_ = true;
    const auto controls = Controls();
    const auto& control = controls[input_.Below(controls.size())];
    const auto kind = input_.Byte();
    const auto value = kind < 240 ? std::int64_t{kind % 4} : std::int64_t{input_.Int32()};
    Printer& printer = till_.session.GetPrinter();
    const bool set = printer.Set(control, value);
    Require(set == (value >= control.least && value <= control.most), "within its range");
    till_.session.Touched();
  }

  void Lamp() {
    touched_ = true;
    const auto lamps = Lamps();
    const auto& lamp = lamps[input_.Below(lamps.size())];
    const auto forced = static_cast<Forced>(input_.Below(3));
    ForceLamp(till_.session.GetPrinter().GetMachine(), lamp, forced);
    Require(ForcedLamp(till_.session.GetPrinter().GetMachine(), lamp) == forced,
            "a lamp shows what it was told");
    till_.session.Touched();
  }

  void Power() {
    answers_.Forget();
    const Books before = till_.session.GetPrinter().GetMachine();
    input_.Flag() ? till_.session.PowerCycle() : till_.session.NewHost();
    const Books& after = till_.session.GetPrinter().GetMachine();
    Require(before.day == after.day && before.numbering == after.numbering, "nothing is forgotten");
    Require(before.document == after.document, "an open document stays open");
  }

  void Execute(const std::string& body) {
    const Printer& printer = till_.session.GetPrinter();
    const auto closed = printer.GetMachine().finished;
    const auto stage = printer.GetStage();
    const auto heard = till_.Command(body);
    Hear(heard);
    // A start byte within a field begins another command.
    const bool alone = body.find(kStx) == std::string::npos;
    const bool refused = alone && !touched_ && RefusedIn(heard);
    Require(!refused || (printer.GetMachine().finished == closed && printer.GetStage() == stage),
            "what is refused changes nothing");
    if (input_.Flag()) Hear(till_.Send(std::string(1, kAck)));
  }

  void Hear(std::string_view bytes) {
    answers_.Read(bytes);
    till_.CheckBooks();
  }

  Input& input_;
  Till till_;
  AnswerReader answers_;
  bool touched_ = false;  // by hand: an error bit may mean anything
};

}  // namespace
}  // namespace impresora::fuzzing

FUZZ_TARGET(input) {
  impresora::fuzzing::Play(input).Run();
}
