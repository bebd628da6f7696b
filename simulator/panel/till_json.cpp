#include "panel/till_json.hpp"

#include <array>
#include <string>

#include "panel/event_json.hpp"

namespace impresora {
namespace {

// A host that prints is heard more often than that; bytes that belong together come faster.
constexpr std::int64_t kStillTalking = 15;
constexpr std::int64_t kPatience = 3;

constexpr std::array<std::string_view, 4> kCables{"pseudoterminal", "tcp", "serie", "tuberia"};

// What a host is set up with, for one kind of line. In braces: what this line has there.
struct ConnectionRow {
  Cable cable;
  std::string_view system;
  std::string_view lines;
  std::string_view note = {};
};

constexpr std::array<ConnectionRow, 9> kConnections{{
    {Cable::kPseudoTerminal, "Linux, en esta máquina", "ImpresoraDispositivo={enlace}"},
    {Cable::kPseudoTerminal, "Windows", "ImpresoraDispositivo=tcp:127.0.0.1:4001",
     "Windows no abre pseudoterminales: arranque esta impresora con --tcp 4001."},
    {Cable::kPseudoTerminal, "Otra máquina", "ImpresoraDispositivo=tcp:EQUIPO:4001",
     "EQUIPO es esta máquina; arranque la impresora con --tcp 0.0.0.0:4001."},
    {Cable::kTcp, "Linux o Windows, en esta máquina",
     "ImpresoraDispositivo=tcp:127.0.0.1:{numero}"},
    {Cable::kTcp, "Otra máquina", "ImpresoraDispositivo=tcp:EQUIPO:{numero}",
     "EQUIPO es esta máquina; la impresora tiene que atender fuera de ella: --tcp "
     "0.0.0.0:{numero}."},
    {Cable::kSerial, "Windows, del otro lado del cable",
     "ImpresoraPuerto=1\nImpresoraConfig={baudios}",
     "El 1 es COM1: el puerto de la caja, no este."},
    {Cable::kSerial, "Linux, del otro lado del cable",
     "ImpresoraDispositivo=/dev/ttyUSB0\nImpresoraConfig={baudios}",
     "El puerto de la caja, no este."},
    {Cable::kPipe, "Windows, en esta máquina", "ImpresoraDispositivo={puerto}"},
    {Cable::kPipe, "Otra máquina", "ImpresoraDispositivo=tcp:EQUIPO:4001",
     "EQUIPO es esta máquina; arranque la impresora con --tcp 0.0.0.0:4001."},
}};

std::string_view LampWord(const HostLine& line, const HostSigns& signs, std::int64_t now) {
  if (line.occupied) return "ocupada";
  if (!signs.heard) return "nadie";
  const bool puzzled = signs.puzzled && now - *signs.puzzled >= kPatience;
  if (puzzled || line.garbles) return "ilegible";
  return now - *signs.heard < kStillTalking ? "activa" : "callada";
}

void Fill(std::string& text, std::string_view place, std::string_view with) {
  const std::size_t at = text.find(place);
  if (at != std::string::npos) text.replace(at, place.size(), with);
}

std::string Filled(std::string_view text, const HostLine& line) {
  std::string filled(text);
  Fill(filled, "{enlace}", line.link.empty() ? line.port : line.link);
  Fill(filled, "{puerto}", line.port);
  Fill(filled, "{numero}", line.port.substr(line.port.rfind(':') + 1));
  Fill(filled, "{baudios}", std::to_string(line.baud));
  return filled;
}

Json ConnectionsJson(const HostLine& line, std::string_view family) {
  Json rows = Json::array();
  for (const ConnectionRow& row : kConnections) {
    if (row.cable != line.cable) continue;
    rows.push_back({{"sistema", row.system},
                    {"lineas", Filled(row.lines, line).append("\nTipoComprobante=").append(family)},
                    {"nota", Filled(row.note, line)}});
  }
  return rows;
}

Json Speed(int baud) {
  return baud > 0 ? Json(baud) : Json();
}

}  // namespace

Json TillJson(const HostLine& line, const HostSigns& signs, std::int64_t now,
              std::string_view family) {
  return {{"estado", LampWord(line, signs, now)},
          {"momento", signs.heard ? Json(IsoMoment(*signs.heard)) : Json()},
          {"linea", kCables.at(static_cast<std::size_t>(line.cable))},
          {"puerto", line.port},
          {"enlace", line.link.empty() ? Json() : Json(line.link)},
          {"baudios", Speed(line.baud)},
          {"baudios_de_la_caja", Speed(line.host_baud)},
          {"conexion", ConnectionsJson(line, family)}};
}

}  // namespace impresora
