#include "arguments.hpp"

#include "words.hpp"

namespace kestra::tool {
namespace {

const Option* OptionOf(const Command& command, std::string_view name) {
  for (const auto& options : {command.options, CommonOptions()}) {
    for (const Option& option : options) {
      if (option.name == name) return &option;
    }
  }
  return nullptr;
}

[[noreturn]] void Misused(const Command& command, std::string words) {
  throw Stop(Exit::kUsage, words.append("; ver kestra ").append(command.name).append(" --ayuda"));
}

// Takes the option that stands at the front, with its value.
void TakeOption(const Command& command, std::span<const std::string>& words, Request& request) {
  const std::string& word = words.front();
  words = words.subspan(1);
  const auto equals = word.find('=');
  const auto name = word.substr(0, equals);
  const Option* const option = OptionOf(command, name);
  if (option == nullptr) Misused(command, "no se conoce la opción " + name);
  if (option->value.empty()) {
    if (equals != std::string::npos) Misused(command, name + " no lleva valor");
    request.options[name];
  } else if (equals != std::string::npos) {
    request.options[name] = word.substr(equals + 1);
  } else {
    if (words.empty()) Misused(command, "falta el valor de " + name);
    request.options[name] = words.front();
    words = words.subspan(1);
  }
}

std::string Row(std::string_view left, std::size_t width, std::string_view right) {
  std::string row = "  " + Padded(left, width) + "  ";
  for (const char c : right) {
    row += c;
    if (c == '\n') row.append(width + 4, ' ');
  }
  return row.append("\n");
}

std::string OptionRows(std::span<const Option> options) {
  constexpr std::size_t kWidth = 24;
  std::string text;
  for (const Option& option : options) {
    std::string left(option.name);
    if (!option.value.empty()) left.append(" ").append(option.value);
    text += Row(left, kWidth, option.help);
  }
  return text;
}

constexpr std::string_view kExits =
    "Termina con:\n"
    "  0  bien\n"
    "  1  hay algo que arreglar, o lo que se preguntó no se hizo\n"
    "  2  las palabras de la orden están mal\n"
    "  3  el puerto no abre o la impresora no contesta\n"
    "  4  no hay Fiscal.ini, o no sirve\n"
    "  5  la impresora lo rechazó, o no se sabe\n"
    "  6  algo falla en esta máquina: un archivo, la memoria\n";

}  // namespace

Request ReadArguments(const Command& command, std::span<const std::string> words) {
  Request request;
  bool options = true;
  while (!words.empty()) {
    const std::string& word = words.front();
    if (options && word == "--") {
      options = false;
    } else if (options && word.size() > 1 && word.front() == '-') {
      TakeOption(command, words, request);
      continue;
    } else {
      request.operands.push_back(word);
    }
    words = words.subspan(1);
  }
  if (request.operands.size() > command.most_operands) {
    Misused(command, "sobra " + request.operands[command.most_operands]);
  }
  return request;
}

std::string ProgramHelp() {
  constexpr std::size_t kWidth = 12;
  std::string text =
      "kestra: la herramienta del negocio para la impresora fiscal\n"
      "\n"
      "  kestra ORDEN [OPCIONES]\n"
      "\n"
      "Órdenes:\n";
  for (const Command& command : Commands()) text += Row(command.name, kWidth, command.summary);
  text += "\nEn todas:\n" + OptionRows(CommonOptions());
  return text
      .append(
          "\nNada de esto imprime ni gasta memoria fiscal, salvo que la orden lo diga y se dé\n"
          "--impresora-real.\n\n")
      .append(kExits);
}

std::string CommandHelp(const Command& command) {
  std::string text = "  kestra ";
  text.append(command.name);
  if (!command.operands.empty()) text.append(" ").append(command.operands);
  text.append(" [OPCIONES]\n\n").append(command.summary).append("\n\n");
  return text + OptionRows(command.options) + OptionRows(CommonOptions()) + "\n" +
         std::string(kExits);
}

}  // namespace kestra::tool
