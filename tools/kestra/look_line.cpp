#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "base/code_page.hpp"
#include "base/failure.hpp"
#include "devices.hpp"
#include "looks.hpp"
#include "platform/seam/port_fault.hpp"
#include "platform/shared/ports.hpp"
#include "printer.hpp"
#include "this_system.hpp"
#include "words.hpp"

namespace kestra::tool {
namespace {

struct FaultRow {
  PortFault fault;
  Trouble trouble;
};

constexpr std::array kFaults = {
    FaultRow{PortFault::kMissing, Trouble::kNoDevice},
    FaultRow{PortFault::kNoHardware, Trouble::kNoHardware},
    FaultRow{PortFault::kNotSerial, Trouble::kNotSerial},
    FaultRow{PortFault::kNotPermitted, Trouble::kNoPermission},
    FaultRow{PortFault::kBusy, Trouble::kBusyDevice},
    FaultRow{PortFault::kLost, Trouble::kLostLine},
    FaultRow{PortFault::kStalled, Trouble::kLostLine},
    FaultRow{PortFault::kTransfer, Trouble::kLostLine},
    FaultRow{PortFault::kUnknownHost, Trouble::kUnknownHost},
    FaultRow{PortFault::kRefused, Trouble::kNobodyListens},
    FaultRow{PortFault::kNoAnswer, Trouble::kHostSilent},
    FaultRow{PortFault::kUnreachable, Trouble::kNoRoute},
    FaultRow{PortFault::kTurnedAway, Trouble::kTurnedAway},
};

Trouble TroubleOf(const Failure& failure) {
  const auto* const found = std::find_if(kFaults.begin(), kFaults.end(), [&](const FaultRow& row) {
    return PortReason(row.fault) == failure.Reason();
  });
  return found == kFaults.end() ? Trouble::kCannotOpen : found->trouble;
}

std::string PortsInWords() {
  std::vector<std::string> words;
  for (const auto& port : ListPorts()) words.push_back(InWords(port));
  return words.empty() ? "ninguno" : Joined(words, "; ");
}

// What bytes that were no answer say, the surest first.
struct SymptomRow {
  bool (*shows)(const Reply& reply);
  Trouble trouble;
};

constexpr std::array kSymptoms = {
    SymptomRow{[](const Reply& reply) { return reply.echo; }, Trouble::kEcho},
    SymptomRow{[](const Reply& reply) { return reply.damaged > 0; }, Trouble::kDamagedAnswers},
    SymptomRow{[](const Reply& reply) { return reply.foreign > 0; }, Trouble::kForeignAnswers},
    SymptomRow{[](const Reply& reply) { return reply.busy > 1; }, Trouble::kAlwaysBusy},
    SymptomRow{[](const Reply& reply) {
                 return reply.refusals > 0 &&
                        static_cast<std::size_t>(reply.refusals) == reply.bytes;
               },
               Trouble::kOnlyRefusals},
    SymptomRow{[](const Reply& reply) { return reply.bytes > 0; }, Trouble::kNoise},
};

std::optional<Trouble> SymptomOf(const Reply& reply) {
  for (const auto& row : kSymptoms) {
    if (row.shows(reply)) return row.trouble;
  }
  return std::nullopt;
}

// A speed's chance: the frame, the printer's thought and its answer.
Wait WaitAt(std::int32_t speed) {
  constexpr double kThought = 0.6;
  constexpr double kBits = 1500;  // of the question and its answer
  const double all = kThought + kBits / speed;
  return {.silence = all, .all = 2 * all};
}

// The speeds that printers are set to, the likeliest first.
constexpr std::array kUsualSpeeds = {9600, 19200, 38400, 57600, 115200, 4800, 2400, 1200, 600, 300};

std::vector<std::int32_t> SpeedsToTry(const Way& way, bool all) {
  std::vector<std::int32_t> speeds(kUsualSpeeds.begin(), kUsualSpeeds.end());
  for (const auto speed : kLineSpeeds) {
    const bool usual = std::find(speeds.begin(), speeds.end(), speed) != speeds.end();
    if (all && !usual) speeds.push_back(speed);
  }
  std::erase_if(speeds, [&](std::int32_t speed) { return std::to_string(speed) == way.speed; });
  return speeds;
}

// Asks on a way that may be no good.
std::optional<Reply> Try(const Way& way, Wait wait) {
  try {
    return Probe(PortOf(way)).Ask(questions::kSummary, wait);
  } catch (const Failure&) {
    return std::nullopt;
  } catch (const Stop&) {
    return std::nullopt;
  }
}

std::optional<Way> TrySpeeds(Diagnosis& diagnosis, Way way, bool all) {
  std::vector<std::string> silent;
  for (const auto speed : SpeedsToTry(way, all)) {
    way.speed = std::to_string(speed);
    const auto reply = Try(way, WaitAt(speed));
    if (reply && reply->answered) {
      diagnosis.Fact("¿otra velocidad?", "sí: contesta a " + way.speed);
      return way;
    }
    silent.push_back(way.speed + (reply && reply->bytes > 0 ? " (llegan bytes)" : ""));
  }
  diagnosis.Fact("¿otra velocidad?", "no contesta a " + Joined(silent));
  return std::nullopt;
}

std::optional<Way> TryPorts(Diagnosis& diagnosis, const Way& way) {
  const auto own = AboutPort(DeviceOf(way)).device;
  std::vector<std::string> silent;
  for (const auto& port : ListPorts()) {
    if (port.device == own) continue;
    Way other = way;
    other.device = port.device;
    const auto reply = Try(other, {.silence = 1.5, .all = 3});
    if (reply && reply->answered) {
      diagnosis.Fact("¿otro puerto?", "sí: contesta en " + InWords(port));
      return other;
    }
    silent.push_back(port.device);
  }
  diagnosis.Fact("¿otro puerto?",
                 silent.empty() ? "no hay otro" : "no contesta en " + Joined(silent));
  return std::nullopt;
}

std::string YesOrNo(bool yes) {
  return yes ? "sí" : "no";
}

// True when the port has such lines and none is raised.
bool LooksSwitchedOff(Diagnosis& diagnosis, const Way& way) {
  const auto signals = LeadsToProgram(way) ? std::nullopt : SignalsOf(DeviceOf(way));
  if (!signals) {
    diagnosis.Fact("¿hay algo prendido?", "este puerto no lo dice");
    return false;
  }
  diagnosis.Fact("¿hay algo prendido?", "DSR " + YesOrNo(signals->data_set_ready) + ", CTS " +
                                            YesOrNo(signals->clear_to_send) + ", DCD " +
                                            YesOrNo(signals->carrier));
  return !signals->data_set_ready && !signals->clear_to_send && !signals->carrier;
}

std::string Counted(const Reply& reply) {
  std::vector<std::string> words{std::to_string(reply.bytes) + " bytes"};
  if (reply.refusals > 0) words.push_back(std::to_string(reply.refusals) + " NAK");
  if (reply.busy > 0) words.push_back(std::to_string(reply.busy) + " avisos de ocupada");
  if (reply.damaged > 0)
    words.push_back(std::to_string(reply.damaged) + " respuestas con la suma mal");
  if (reply.foreign > 0)
    words.push_back(std::to_string(reply.foreign) + " respuestas a otra trama");
  return Joined(words);
}

// What was said at the configured speed, in one fact; whether what came explains itself, whatever the speed.
bool TellFirst(Diagnosis& diagnosis, const Reply& reply) {
  diagnosis.Fact("¿llega algo?",
                 reply.bytes == 0 ? "nada en " + SecondsInWords(reply.seconds) : Counted(reply));
  if (reply.echo) diagnosis.Fact("¿es un eco?", "sí: vuelve la trama misma");
  return reply.echo || reply.busy > 1 || reply.foreign > 0;
}

// Works the tree through for a printer that gives no answer of its own.
std::optional<Way> FindWhySilent(Diagnosis& diagnosis, const Way& way, const Reply& reply,
                                 LineLook look) {
  diagnosis.Section("La impresora no contesta");
  diagnosis.Fact("¿abre el puerto?", "sí");
  const bool explained = TellFirst(diagnosis, reply);
  const auto symptom = SymptomOf(reply);
  if (explained) {
    diagnosis.Find(*symptom, Counted(reply));
    return std::nullopt;
  }
  if (!LeadsToProgram(way)) {
    const auto other = TrySpeeds(diagnosis, way, look.all_speeds);
    if (other) {
      diagnosis.Find(Trouble::kWrongSpeed,
                     "Fiscal.ini dice " + way.speed + ", la impresora contesta a " + other->speed);
      return other;
    }
  }
  const bool off = LooksSwitchedOff(diagnosis, way);
  if (look.other_ports) {
    const auto other = TryPorts(diagnosis, way);
    if (other) {
      diagnosis.Find(Trouble::kOtherPort, other->device);
      return other;
    }
  } else {
    diagnosis.Fact("otros puertos", PortsInWords());
  }
  const auto silent = off ? Trouble::kSwitchedOff : Trouble::kSilent;
  diagnosis.Find(symptom.value_or(silent), symptom ? Counted(reply) : Utf8FromAnsi(DeviceOf(way)));
  return std::nullopt;
}

}  // namespace

void LookAtDevice(Diagnosis& diagnosis, const Way& way) {
  constexpr int kGoodLatency = 4;
  diagnosis.Section("Puerto");
  const auto device = DeviceOf(way);
  const bool instead = !DeviceInstead().empty();
  diagnosis.Fact("dispositivo",
                 Utf8FromAnsi(device) +
                     (instead ? ", por la variable KESTRA_DISPOSITIVO y no por Fiscal.ini" : ""));
  if (LeadsToProgram(way)) return;
  const auto port = AboutPort(device);
  diagnosis.Fact("es", InWords(port));
  if (const auto permission = PermissionOf(device); !permission.empty()) {
    diagnosis.Fact("permiso", permission);
  }
  if (const auto users = UsersOf(device); !users.empty()) {
    diagnosis.Fact("lo tienen abierto", Joined(users));
    diagnosis.Find(Trouble::kSharedDevice, Joined(users));
  }
  if (!port.latency) return;
  diagnosis.Fact("latencia", std::to_string(*port.latency) + " ms");
  if (*port.latency > kGoodLatency) {
    diagnosis.Find(Trouble::kLatency, std::to_string(*port.latency) + " ms en " + port.device);
  }
}

std::optional<Way> LookAtLine(Diagnosis& diagnosis, const Way& way, LineLook look) {
  try {
    const auto reply = Probe(PortOf(way)).Ask(questions::kSummary);
    if (!reply.answered) return FindWhySilent(diagnosis, way, reply, look);
    diagnosis.Fact("contesta",
                   "sí, en " + SecondsInWords(reply.seconds) +
                       (LeadsToProgram(way) ? "" : ", a " + way.speed + " bits por segundo"));
    if (reply.damaged > 0) diagnosis.Find(Trouble::kDamagedAnswers, Counted(reply));
    return way;
  } catch (const Failure& failure) {
    const auto words = Utf8FromAnsi(failure.Description());
    diagnosis.Fact("contesta", "no: " + words);
    const bool names_ports = !LeadsToProgram(way);
    if (names_ports) diagnosis.Fact("puertos de la máquina", PortsInWords());
    const auto users = LeadsToProgram(way) ? std::vector<std::string>() : UsersOf(DeviceOf(way));
    diagnosis.Find(TroubleOf(failure), users.empty() ? words : words + ": " + Joined(users));
    return std::nullopt;
  }
}

}  // namespace kestra::tool
