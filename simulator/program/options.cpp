#include "program/options.hpp"

#include <algorithm>
#include <array>
#include <ostream>

#include "program/flags.hpp"
#include "program/ini_file.hpp"

namespace impresora {
namespace {

// A flag and one of its values, as they stand in the arguments.
struct Given {
  const Flag* flag;
  std::string_view value;
};

// What people type who do not know this program yet.
constexpr std::array<std::string_view, 2> kHelpWords{"--help", "-h"};

const Flag* FindFlag(std::string_view name) {
  if (std::find(kHelpWords.begin(), kHelpWords.end(), name) != kHelpWords.end()) name = "--ayuda";
  for (const Flag& flag : Flags()) {
    if (flag.name == name) return &flag;
  }
  return nullptr;
}

std::string Quoted(std::string_view text) {
  return "«" + std::string(text) + "»";
}

using CommandLine = std::vector<std::string_view>;

// Takes the flag at `next` with its values.
std::string TakeFlag(const CommandLine& arguments, std::size_t& next, std::vector<Given>& given) {
  const std::string_view argument = arguments[next++];
  const std::size_t equals = argument.find('=');
  const bool joined = equals != std::string_view::npos;
  const Flag* const flag = FindFlag(argument.substr(0, equals));
  if (flag == nullptr) return "opción desconocida: " + Quoted(argument);
  if (flag->value.empty()) {
    if (joined) return "la opción " + std::string(flag->name) + " no lleva valor";
    given.push_back({flag, {}});
    return {};
  }
  if (joined) given.push_back({flag, argument.substr(equals + 1)});
  for (int count = joined ? 1 : 0; count < flag->values; ++count) {
    if (next == arguments.size()) return "falta el valor de " + std::string(flag->name);
    given.push_back({flag, arguments[next++]});
  }
  return {};
}

std::string WrongValue(const Given& given) {
  const Flag& flag = *given.flag;
  const std::string right = flag.listed != nullptr ? flag.listed() : std::string(flag.right);
  return "valor no válido para " + std::string(flag.name) + ": " + Quoted(given.value) +
         "; se espera " + (right.empty() ? std::string(flag.value) : right);
}

// The file first, wherever it stands: what the other flags say goes before it.
std::string ApplyIni(const std::vector<Given>& given, Options& options) {
  for (const Given& one : given) {
    if (one.flag->name != "--ini") continue;
    std::string wrong = ApplyFiscalIni(std::string(one.value), options.settings);
    if (!wrong.empty()) return wrong;
  }
  return {};
}

// More than one line would leave a host without its printer.
std::string Contradictions(const Options& options) {
  const int lines = (options.tcp ? 1 : 0) + (options.device.empty() ? 0 : 1) +
                    (options.pipe.empty() ? 0 : 1) + (options.link.empty() ? 0 : 1);
  if (lines > 1) return "hay que elegir una línea: --enlace, --tcp, --dispositivo o --tuberia";
  const bool printer_wanted = !options.memory.empty() || !options.fault_file.empty() ||
                              !options.trace.empty() || !options.recording.empty() ||
                              options.panel || options.documents > 0;
  if (!options.replay.empty() && printer_wanted) {
    return "--reproducir contesta sin la impresora: no va con --memoria, --fallas, --traza, "
           "--grabar, --panel ni --documentos";
  }
  return {};
}

void PrintFlag(std::ostream& out, const Flag& flag) {
  constexpr std::size_t kHelpColumn = 32;
  std::string line = "  " + std::string(flag.name);
  if (!flag.value.empty()) line.append(1, ' ').append(flag.value);
  line.append(line.size() < kHelpColumn ? kHelpColumn - line.size() : 1, ' ');
  for (const char c : flag.help) {
    line += c;
    if (c == '\n') line.append(kHelpColumn, ' ');
  }
  out << line << '\n';
}

}  // namespace

std::string ParseOptions(const CommandLine& arguments, Options& options) {
  std::vector<Given> given;
  std::string wrong;
  for (std::size_t next = 0; next < arguments.size();) {
    wrong = TakeFlag(arguments, next, given);
    if (!wrong.empty()) return wrong;
  }
  wrong = ApplyIni(given, options);
  if (!wrong.empty()) return wrong;
  for (const Given& one : given) {
    if (!one.flag->set(options, one.value)) return WrongValue(one);
  }
  return Contradictions(options);
}

void PrintHelp(std::ostream& out) {
  out << "Uso: impresora-virtual [opciones]\n\n"
         "Una impresora fiscal virtual al otro lado de un cable: una pseudoterminal, un puerto\n"
         "serie o TCP. La primera línea de la salida dice el puerto: «Puerto: /dev/pts/N». Todo\n"
         "lo que imprime va sin validez fiscal.\n"
         "\n";
  for (const Flag& flag : Flags()) PrintFlag(out, flag);
}

}  // namespace impresora
