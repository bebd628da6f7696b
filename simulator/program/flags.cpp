#include "program/flags.hpp"

#include <array>
#include <charconv>

#include "machine/controls.hpp"
#include "program/ini_file.hpp"
#include "wire/speed.hpp"

namespace impresora {
namespace {

template <typename Number>
bool ReadNumber(std::string_view text, Number least, Number most, Number& value) {
  const char* const end = text.data() + text.size();
  Number read = 0;
  const auto result = std::from_chars(text.data(), end, read);
  if (result.ec != std::errc() || result.ptr != end || read < least || read > most) return false;
  value = read;
  return true;
}

bool ReadInt(std::string_view text, int least, int most, int& value) {
  return ReadNumber(text, least, most, value);
}

// Each of the parts between commas.
template <typename Set>
bool ForEachPart(std::string_view value, Set set) {
  while (true) {
    const std::size_t comma = value.find(',');
    if (!set(value.substr(0, comma))) return false;
    if (comma == std::string_view::npos) return true;
    value.remove_prefix(comma + 1);
  }
}

// "250" for every command, "B=250" for the one of that byte.
bool SetOneThinkingTime(Options& options, std::string_view item) {
  constexpr int kLongest = 3'600'000;
  const bool one = item.size() > 2 && item[1] == '=';
  int milliseconds = 0;
  if (!ReadInt(one ? item.substr(2) : item, 0, kLongest, milliseconds)) return false;
  auto& times = options.settings.work_milliseconds;
  const auto time = static_cast<std::uint32_t>(milliseconds);
  if (one) {
    times.at(static_cast<unsigned char>(item.front())) = time;
  } else {
    times.fill(time);
  }
  return true;
}

bool SetThinkingTimes(Options& options, std::string_view value) {
  return ForEachPart(
      value, [&options](std::string_view item) { return SetOneThinkingTime(options, item); });
}

struct DigitName {
  std::string_view name;
  Digits FieldDigits::*digits;
};

constexpr std::array<DigitName, 6> kDigitNames{{
    {"cantidad", &FieldDigits::quantity},
    {"precio", &FieldDigits::price},
    {"iva", &FieldDigits::rate},
    {"internos", &FieldDigits::internal_tax},
    {"importe", &FieldDigits::amount},
    {"percepcion", &FieldDigits::perception},
}};

bool SetOneDigitCount(Options& options, std::string_view item) {
  const std::size_t equals = item.find('=');
  const std::size_t point = item.find('.', equals == std::string_view::npos ? 0 : equals);
  if (equals == std::string_view::npos || point == std::string_view::npos) return false;
  Digits digits{};
  if (!ReadInt(item.substr(equals + 1, point - equals - 1), 1, 9, digits.integers)) return false;
  if (!ReadInt(item.substr(point + 1), 0, 4, digits.decimals)) return false;
  for (const DigitName& row : kDigitNames) {
    if (row.name != item.substr(0, equals)) continue;
    options.settings.digits.*row.digits = digits;
    return true;
  }
  return false;
}

bool SetDigits(Options& options, std::string_view value) {
  return ForEachPart(value,
                     [&options](std::string_view item) { return SetOneDigitCount(options, item); });
}

bool SetOneControl(Options& options, std::string_view item) {
  const std::size_t equals = item.find('=');
  const Control* const control = FindControl(item.substr(0, equals));
  if (control == nullptr || equals == std::string_view::npos) return false;
  const auto number = ReadControl(*control, item.substr(equals + 1));
  if (!number) return false;
  options.controls.emplace_back(control, *number);
  return true;
}

bool SetControls(Options& options, std::string_view value) {
  return ForEachPart(value,
                     [&options](std::string_view item) { return SetOneControl(options, item); });
}

std::string ListDigitNames() {
  std::string names;
  for (const DigitName& row : kDigitNames)
    names += (names.empty() ? "" : ", ") + std::string(row.name);
  return "CAMPO=E.D, de 1 a 9 enteros y de 0 a 4 decimales; campos: " + names;
}

// One name for a switch, its range for a number.
std::string ListControls() {
  std::string text = "CLAVE=VALOR; claves:";
  for (const Control& control : Controls()) {
    text.append("\n  ").append(control.key).append("=");
    if (control.kind == ControlKind::kSwitch) text += "si|no";
    if (control.kind == ControlKind::kMoment) text += "AAAA-MM-DD HH:MM:SS";
    if (control.kind != ControlKind::kNumber) continue;
    text += "N, de " + std::to_string(control.least) + " a " + std::to_string(control.most);
  }
  return text;
}

bool SetTcp(std::optional<TcpAddress>& place, std::string_view value) {
  TcpAddress address;
  if (!ReadTcpAddress(value, address)) return false;
  place = address;
  return true;
}

using Text = std::string_view;

constexpr std::array kFlags{
    Flag{"--familia", "TQ|TF|FC", "tiques, tique-facturas (por omisión) o formularios",
         [](Options& o, Text v) { return SetFamily(o.settings, v); }},
    Flag{"--ini", "FISCAL.INI",
         "familia, modelo, dígitos y largos como en ese archivo del controlador",
         [](Options&, Text v) { return !v.empty(); }},
    Flag{"--enlace", "RUTA", "enlace simbólico estable hacia el puerto",
         [](Options& o, Text v) { return o.link = v, !v.empty(); }},
    Flag{"--tcp", "HOST:PUERTO",
         "atender por TCP; sin host, solo esta máquina; puerto 0, uno libre",
         [](Options& o, Text v) { return SetTcp(o.tcp, v); }},
    Flag{"--dispositivo", "RUTA", "atender en un puerto serie de esta máquina",
         [](Options& o, Text v) { return o.device = v, !v.empty(); }},
    Flag{"--tuberia", "NOMBRE", "atender en una tubería de Windows (\\\\.\\pipe\\NOMBRE)",
         [](Options& o, Text v) { return o.pipe = v, !v.empty(); }},
    Flag{"--baudios", "N", "velocidad de la línea (por omisión, sin límite)",
         [](Options& o, Text v) { return ReadInt(v, kSlowest, kFastest, o.baud); }, 1,
         "un número de 50 a 4000000"},
    Flag{"--demora", "MS|X=MS,...", "milisegundos de trabajo por comando, o solo del comando X",
         SetThinkingTimes, 1, "milisegundos de 0 a 3600000 o X=milisegundos"},
    Flag{"--memoria", "ARCHIVO", "memoria fiscal en ese archivo; sin ella, se pierde al terminar",
         [](Options& o, Text v) { return o.memory = v, !v.empty(); }},
    Flag{"--papel", "ARCHIVO|CARPETA/",
         "dónde imprimir; - es la salida estándar (por omisión); en una carpeta,\n"
         "texto, SVG y PNG de cada comprobante",
         [](Options& o, Text v) { return o.paper = v, !v.empty(); }},
    Flag{"--fuente", "ARCHIVO", "letra de los PNG (por omisión, DejaVu Sans Mono)",
         [](Options& o, Text v) { return o.font = v, !v.empty(); }},
    Flag{"--traza", "ARCHIVO",
         "una línea por intercambio; - es la salida estándar; JSON si termina en .jsonl",
         [](Options& o, Text v) { return o.trace = v, !v.empty(); }},
    Flag{"--grabar", "ARCHIVO", "grabar la sesión",
         [](Options& o, Text v) { return o.recording = v, !v.empty(); }},
    Flag{"--reproducir", "ARCHIVO", "contestar lo grabado, en lugar de la impresora",
         [](Options& o, Text v) { return o.replay = v, !v.empty(); }},
    Flag{"--comparar", "A B", "comparar dos grabaciones y terminar",
         [](Options& o, Text v) { return o.compare.emplace_back(v), !v.empty(); }, 2},
    Flag{"--con-reloj", "", "comparar también las fechas y horas que informa la impresora",
         [](Options& o, Text) { return o.compare_clock = true; }},
    Flag{"--fallas", "ARCHIVO", "fallas que provocar, una regla por línea",
         [](Options& o, Text v) { return o.fault_file = v, !v.empty(); }},
    Flag{"--semilla", "N", "semilla de las fallas al azar (por omisión 1)",
         [](Options& o, Text v) { return ReadNumber<std::uint64_t>(v, 0, UINT64_MAX, o.seed); }, 1,
         "un número de 0 a 18446744073709551615"},
    Flag{"--panel", "HOST:PUERTO", "panel en el navegador; sin host, solo esta máquina",
         [](Options& o, Text v) { return SetTcp(o.panel, v); }},
    Flag{"--cierres-restantes", "N", "cierres Z que quedan en la memoria fiscal",
         [](Options& o, Text v) { return ReadInt(v, 0, 99'999, o.settings.closings_left); }, 1,
         "un número de 0 a 99999"},
    Flag{"--documentos", "N", "terminar después de N documentos cerrados",
         [](Options& o, Text v) { return ReadInt(v, 1, 1'000'000'000, o.documents); }, 1,
         "un número de 1 a 1000000000"},
    Flag{"--digitos",
         "CAMPO=E.D,...",
         "dígitos enteros y decimales de cantidad, precio, iva, internos, importe,\n"
         "percepcion",
         SetDigits,
         1,
         {},
         ListDigitNames},
    Flag{"--modelo", "NOMBRE", "modelo que informa la impresora",
         [](Options& o, Text v) { return o.settings.model = v, !v.empty(); }},
    Flag{"--punto-venta", "N", "número de punto de venta (por omisión 1)",
         [](Options& o, Text v) { return ReadInt(v, 1, 9999, o.settings.point_of_sale); }, 1,
         "un número de 1 a 9999"},
    Flag{"--lineas-hoja", "N", "renglones de ítems por formulario (por omisión 24)",
         [](Options& o, Text v) { return ReadInt(v, 1, 999, o.settings.lines_per_form); }, 1,
         "un número de 1 a 999"},
    Flag{"--cuit-estricto", "", "rechazar los CUIT con el dígito verificador mal",
         [](Options& o, Text) { return o.settings.strict_cuit = true; }},
    Flag{"--estricta", "",
         "rechazar lo que rechaza la impresora de un comercio; con --baudios, oír mal a\n"
         "quien habla a otra velocidad",
         [](Options& o, Text) { return o.settings.strict = true; }},
    Flag{"--sin-repetidas", "", "no reconocer tramas repetidas: cada una es un comando nuevo",
         [](Options& o, Text) { return o.settings.knows_repeats = false, true; }},
    Flag{"--sin-papel", "", "arrancar sin papel",
         [](Options& o, Text) { return SetOneControl(o, "sin_papel=1"); }},
    Flag{"--fuera-de-linea", "", "arrancar fuera de línea",
         [](Options& o, Text) { return SetOneControl(o, "fuera_de_linea=1"); }},
    Flag{"--bateria-baja", "", "arrancar con la batería baja",
         [](Options& o, Text) { return SetOneControl(o, "bateria_baja=1"); }},
    Flag{"--estado",
         "CLAVE=VALOR,...",
         "arrancar con esos controles así",
         SetControls,
         1,
         {},
         ListControls},
    Flag{"--ayuda", "", "esta ayuda; también --help y -h",
         [](Options& o, Text) { return o.help = true; }},
    Flag{"--version", "", "la versión del programa",
         [](Options& o, Text) { return o.version = true; }},
};

}  // namespace

std::span<const Flag> Flags() {
  return kFlags;
}

}  // namespace impresora
