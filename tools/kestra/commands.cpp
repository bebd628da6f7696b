#include "commands.hpp"

#include <array>

namespace kestra::tool {
namespace {

constexpr std::array kCommon = {
    Option{"--carpeta", "CARPETA", "la de Fiscal.ini; sin ella, esta"},
    Option{"--json", "", "el resultado como JSON, para programas"},
    Option{"--ayuda", "", "esta ayuda; también --help y -h"},
};

constexpr std::array kCommands = {
    Command{.name = "estado",
            .operands = "",
            .most_operands = 0,
            .summary = "lo que la impresora dice de sí, en palabras",
            .options = {},
            .run = RunStatus},
};

}  // namespace

std::span<const Command> Commands() {
  return kCommands;
}

std::span<const Option> CommonOptions() {
  return kCommon;
}

}  // namespace kestra::tool
