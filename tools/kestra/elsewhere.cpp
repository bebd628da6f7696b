#include <string>

#include "commands.hpp"

namespace kestra::tool {
namespace {

// A program that was built without the virtual printer has none of its words for frames and fields.
[[noreturn]] void SendElsewhere(const std::string& command) {
  throw Stop(
      Exit::kUsage,
      command +
          " no está en este kestra, que se hizo sin ella, como todos los de 32 bits: está en "
          "el de 64 bits, x64\\kestra.exe del paquete de Windows, y en el de Linux");
}

}  // namespace

Exit RunLog(const Request&, Console&) {
  SendElsewhere("registro (fiscal.log puede llevarse a otra máquina y leerse ahí)");
}

Exit RunRelay(const Request&, Console&) {
  SendElsewhere("presenciar");
}

Exit RunPrompt(const Request&, Console&) {
  SendElsewhere("consola");
}

}  // namespace kestra::tool
