#include "program/command_line.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

namespace puerta {
namespace {

struct Row {
  std::string_view word;
  Mode mode;
};

constexpr std::array<Row, 7> kModes{{
    {"--ayuda", Mode::kHelp},
    {"--help", Mode::kHelp},
    {"-h", Mode::kHelp},
    {"--version", Mode::kVersion},
    {"--trabajador", Mode::kWorker},
    {"--servicio", Mode::kService},
    {"--clave-nueva", Mode::kNewKey},
}};

}  // namespace

Options ReadOptions(const std::vector<std::string>& words) {
  Options options;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const auto* row = std::find_if(kModes.begin(), kModes.end(),
                                   [&](const Row& known) { return known.word == words[i]; });
    if (row != kModes.end()) {
      options.mode = row->mode;
    } else if (words[i] == "--configuracion" && i + 1 < words.size()) {
      options.configuration = words[++i];
    } else {
      options.error = "no se entiende «" + words[i] + "»";
      return options;
    }
  }
  return options;
}

std::string_view Usage() {
  return "kestra-puerta: las impresoras fiscales de un comercio, por HTTP y JSON.\n"
         "\n"
         "  --configuracion ARCHIVO   la configuración (puerta.json)\n"
         "  --clave-nueva             hace una clave para una caja, y lo que de ella va en la "
         "configuración\n"
         "  --servicio                corre como servicio del sistema (Windows)\n"
         "  --trabajador              lo usa el programa mismo: el proceso de una impresora\n"
         "  --ayuda, --version\n";
}

}  // namespace puerta
