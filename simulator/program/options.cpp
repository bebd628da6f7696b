#include "options.hpp"

#include <array>
#include <charconv>
#include <ostream>

namespace impresora {
namespace {

bool ReadInt(std::string_view text, int least, int most, int& value) {
  const char* const end = text.data() + text.size();
  int read = 0;
  const auto result = std::from_chars(text.data(), end, read);
  if (result.ec != std::errc() || result.ptr != end || read < least || read > most) return false;
  value = read;
  return true;
}

bool SetFamily(Options& options, std::string_view value) {
  constexpr std::array<std::pair<std::string_view, Family>, 3> kFamilies{
      {{"TQ", Family::kTicket}, {"TF", Family::kTicketInvoice}, {"FC", Family::kForm}}};
  for (const auto& [code, family] : kFamilies) {
    if (code != value) continue;
    options.settings.family = family;
    return true;
  }
  return false;
}

bool SetThinkingTime(Options& options, std::string_view value) {
  int milliseconds = 0;
  if (!ReadInt(value, 0, 3'600'000, milliseconds)) return false;
  options.settings.work_milliseconds.fill(static_cast<std::uint32_t>(milliseconds));
  return true;
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
  while (true) {
    const std::size_t comma = value.find(',');
    if (!SetOneDigitCount(options, value.substr(0, comma))) return false;
    if (comma == std::string_view::npos) return true;
    value.remove_prefix(comma + 1);
  }
}

// One row per flag; `set` returns false when the value makes no sense.
struct Flag {
  std::string_view name;
  std::string_view value;  // what the help calls it; empty for a flag that stands alone
  std::string_view help;
  bool (*set)(Options&, std::string_view);
};

using Text = std::string_view;

constexpr std::array<Flag, 17> kFlags{{
    {"--familia", "TQ|TF|FC", "tiques, tique-facturas (por omisión) o formularios", SetFamily},
    {"--enlace", "RUTA", "enlace simbólico estable hacia el puerto",
     [](Options& o, Text v) { return o.link = v, !v.empty(); }},
    {"--papel", "ARCHIVO", "dónde imprimir; - es la salida estándar (por omisión)",
     [](Options& o, Text v) { return o.paper = v, !v.empty(); }},
    {"--traza", "ARCHIVO", "una línea por intercambio; - es la salida estándar",
     [](Options& o, Text v) { return o.trace = v, !v.empty(); }},
    {"--demora", "MS", "milisegundos de trabajo por comando (por omisión 0)", SetThinkingTime},
    {"--baudios", "N", "velocidad de la línea (por omisión, sin límite)",
     [](Options& o, Text v) { return ReadInt(v, 50, 4'000'000, o.baud); }},
    {"--cierres-restantes", "N", "cierres Z que quedan en la memoria fiscal",
     [](Options& o, Text v) { return ReadInt(v, 0, 99'999, o.settings.closings_left); }},
    {"--documentos", "N", "terminar después de N documentos cerrados",
     [](Options& o, Text v) { return ReadInt(v, 1, 1'000'000'000, o.documents); }},
    {"--digitos", "CAMPO=E.D,...",
     "dígitos enteros y decimales de cantidad, precio, iva, internos, importe, percepcion",
     SetDigits},
    {"--modelo", "NOMBRE", "modelo que informa la impresora",
     [](Options& o, Text v) { return o.settings.model = v, !v.empty(); }},
    {"--punto-venta", "N", "número de punto de venta (por omisión 1)",
     [](Options& o, Text v) { return ReadInt(v, 1, 9999, o.settings.point_of_sale); }},
    {"--lineas-hoja", "N", "renglones de ítems por formulario (por omisión 24)",
     [](Options& o, Text v) { return ReadInt(v, 1, 999, o.settings.lines_per_form); }},
    {"--sin-papel", "", "arrancar sin papel",
     [](Options& o, Text) { return o.faults.paper_out = true; }},
    {"--fuera-de-linea", "", "arrancar fuera de línea",
     [](Options& o, Text) { return o.faults.offline = true; }},
    {"--bateria-baja", "", "arrancar con la batería baja",
     [](Options& o, Text) { return o.faults.low_battery = true; }},
    {"--ayuda", "", "esta ayuda", [](Options& o, Text) { return o.help = true; }},
    {"--version", "", "la versión del programa", [](Options& o, Text) { return o.version = true; }},
}};

const Flag* FindFlag(std::string_view name) {
  for (const Flag& flag : kFlags) {
    if (flag.name == name) return &flag;
  }
  return nullptr;
}

std::string Quoted(std::string_view text) {
  return "«" + std::string(text) + "»";
}

}  // namespace

std::string ParseOptions(const std::vector<std::string_view>& arguments, Options& options) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    const std::size_t equals = argument.find('=');
    const Flag* const flag = FindFlag(argument.substr(0, equals));
    if (flag == nullptr) return "opción desconocida: " + Quoted(argument);
    std::string_view value;
    if (flag->value.empty()) {
      if (equals != std::string_view::npos) {
        return "la opción " + std::string(flag->name) + " no lleva valor";
      }
    } else if (equals != std::string_view::npos) {
      value = argument.substr(equals + 1);
    } else if (++i < arguments.size()) {
      value = arguments[i];
    } else {
      return "falta el valor de " + std::string(flag->name);
    }
    if (!flag->set(options, value)) {
      return "valor no válido para " + std::string(flag->name) + ": " + Quoted(value);
    }
  }
  return {};
}

void PrintHelp(std::ostream& out) {
  constexpr std::size_t kHelpColumn = 32;
  out << "Uso: impresora-virtual [opciones]\n\n"
         "Una impresora fiscal virtual al otro lado de una pseudoterminal. La primera línea de la\n"
         "salida dice el puerto: «Puerto: /dev/pts/N». Todo lo que imprime va sin validez fiscal.\n"
         "\n";
  for (const Flag& flag : kFlags) {
    std::string line = "  " + std::string(flag.name);
    if (!flag.value.empty()) line.append(1, ' ').append(flag.value);
    line.append(line.size() < kHelpColumn ? kHelpColumn - line.size() : 1, ' ');
    out << line << flag.help << '\n';
  }
}

}  // namespace impresora
