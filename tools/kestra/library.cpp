#include "library.hpp"

#include <kestra/kestra.h>

#include "command.hpp"

namespace kestra::tool {
namespace {

constexpr std::int32_t kUtf8 = 2;
constexpr std::int32_t kAnswerOk = 1;
constexpr std::int32_t kAnswerNo = 7;

std::int32_t KESTRA_CALL Keep(void* said, const char* text, const char*, std::int32_t style) {
  static_cast<std::vector<std::string>*>(said)->emplace_back(text);
  return style == 0 ? kAnswerOk : kAnswerNo;
}

std::int32_t KESTRA_CALL KeepReport(void* said, const char* printer, const char* fiscal,
                                    const KestraFila* rows, std::int32_t count) {
  auto& texts = *static_cast<std::vector<std::string>*>(said);
  texts.push_back(std::string("impresora ") + printer + ", fiscal " + fiscal);
  for (std::int32_t i = 0; i < count; ++i) {
    if (rows[i].encendida != 0) texts.emplace_back(rows[i].texto);
  }
  return 0;
}

void KESTRA_CALL KeepMemoryFull(void* said) {
  static_cast<std::vector<std::string>*>(said)->emplace_back("Memoria fiscal casi llena");
}

}  // namespace

LibraryAtWork::LibraryAtWork() {
  const KestraOperador silent = {.tamano = sizeof(KestraOperador),
                                 .contexto = &said_,
                                 .mensaje = Keep,
                                 .informe_estados = KeepReport,
                                 .memoria_llena = KeepMemoryFull};
  Kestra_DefinirOperador(&silent);
  Kestra_Textos(kUtf8);
  if (EP_Init() == 1) return;
  Kestra_DefinirOperador(nullptr);
  const auto why = said_.empty() ? std::string() : ": " + said_.front();
  throw Stop(Exit::kBadSettings, "la biblioteca no puede empezar con este Fiscal.ini" + why +
                                     "; ver kestra diagnostico");
}

LibraryAtWork::~LibraryAtWork() {
  EP_Kill();
  Kestra_DefinirOperador(nullptr);
}

}  // namespace kestra::tool
