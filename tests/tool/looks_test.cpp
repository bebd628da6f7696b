// What a diagnosis finds on machines that a test cannot have: each finding that broken_shops.py has no shop for.
#include "looks.hpp"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>

#include "made_machine.hpp"

namespace kestra::tool {
namespace {

struct Row {
  std::string_view name;
  void (*break_it)(MadeMachine& machine);
  std::string_view verdict;
  std::string_view told;  // by the finding
};

constexpr std::string_view kOwn = "/dev/ttyUSB0";

MadeLine& OwnLine(MadeMachine& machine) {
  return machine.lines[std::string(kOwn)];
}

void Silence(MadeMachine& machine) {
  OwnLine(machine) = {};
}

void Refuse(MadeMachine& machine, PortFault fault) {
  OwnLine(machine).fault = fault;
}

constexpr Row kRows[] = {
    {"a port that is a name alone",
     [](MadeMachine& machine) { Refuse(machine, PortFault::kNoHardware); }, "puerto-sin-circuito",
     "ttyUSB0"},
    {"a driver that is in disorder",
     [](MadeMachine& machine) { Refuse(machine, PortFault::kCannotOpen); }, "puerto-no-abre",
     "ttyUSB0"},
    {"an adapter that is pulled out",
     [](MadeMachine& machine) { Refuse(machine, PortFault::kLost); }, "puerto-perdido", "ttyUSB0"},
    {"an adapter that stands still",
     [](MadeMachine& machine) { Refuse(machine, PortFault::kStalled); }, "puerto-perdido",
     "ttyUSB0"},
    {"a cable in the other port",
     [](MadeMachine& machine) {
       Silence(machine);
       machine.lines["/dev/ttyS1"].answers = true;
     },
     "otro-puerto", "/dev/ttyS1"},
    {"a printer that is switched off",
     [](MadeMachine& machine) {
       Silence(machine);
       machine.signals = Signals{};
     },
     "apagada-o-sin-cable", "ttyUSB0"},
    {"a printer that raises a line and says nothing",
     [](MadeMachine& machine) {
       Silence(machine);
       machine.signals = Signals{.clear_to_send = true};
     },
     "impresora-muda", "ttyUSB0"},
    {"an adapter that keeps bytes back",
     [](MadeMachine& machine) { machine.ports.front().latency = 16; }, "latencia-usb", "16 ms"},
    {"a disk that is nearly full", [](MadeMachine& machine) { machine.free_bytes = 12'000'000; },
     "poco-disco", "12 MB"},
    {"all is well", [](MadeMachine&) {}, "", ""},
};

MadeMachine GoodMachine() {
  return {
      .ports = {{.device = std::string(kOwn),
                 .steady = {},
                 .adapter = "Prolific USB-Serial",
                 .serial = {},
                 .latency = 1},
                {.device = "/dev/ttyS1", .steady = {}, .adapter = {}, .serial = {}, .latency = {}}},
      .lines = {{std::string(kOwn), {.fault = {}, .answers = true}}},
      .signals = {}};
}

TEST(Looks, TheCauseIsNamed) {
  const Way way{
      .device = std::string(kOwn), .number = {}, .speed = "9600", .family = "TQ", .model = {}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    TheMachine() = GoodMachine();
    row.break_it(TheMachine());
    std::ostringstream said;
    Console console(said, said, false);
    Diagnosis diagnosis(console);
    LookAtDevice(diagnosis, way);
    LookAtLine(diagnosis, way, {.all_speeds = false, .other_ports = true});
    LookAtFiles(diagnosis, way);
    const auto* const verdict = diagnosis.Verdict();
    EXPECT_EQ(verdict == nullptr ? "" : verdict->code, row.verdict);
    diagnosis.Conclude();
    EXPECT_NE(said.str().find(row.told), std::string::npos) << said.str();
  }
}

}  // namespace
}  // namespace kestra::tool
