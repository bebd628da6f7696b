#include "fuzz/host_dialogs.hpp"

#include <memory>

#include "fuzz/calls.hpp"
#include "kestra/kestra.h"

namespace kestra::fuzzing {
namespace {

using fuzz::Require;

constexpr std::array<std::uint32_t, 8> kSizes{
    sizeof(KestraOperador), sizeof(KestraOperador), sizeof(KestraOperador), 1000, 32, 24, 16, 4};

std::int32_t KESTRA_CALL Mensaje(void* contexto, const char* texto, const char* titulo,
                                 std::int32_t estilo) {
  Require(texto != nullptr && titulo != nullptr, "a box has a text and a title");
  Require(std::strlen(texto) > 0, "and says something");
  Require(estilo == 0 || estilo == 4 || estilo == 36, "in a known style");
  return static_cast<HostDialogs*>(contexto)->Answer();
}

std::int32_t KESTRA_CALL InformeEstados(void* contexto, const char* impresora, const char* fiscal,
                                        const KestraFila* filas, std::int32_t cantidad) {
  Require(std::strlen(impresora) + std::strlen(fiscal) < 1000 && cantidad == 23,
          "two words, all rows");
  for (std::int32_t i = 0; i < cantidad; ++i) {
    Require(filas[i].grupo == 0 || filas[i].grupo == 1, "each of a group");
    Require(std::strlen(filas[i].texto) > 0 && std::strlen(filas[i].ayuda) > 0, "with its words");
  }
  return static_cast<HostDialogs*>(contexto)->Answer() % 2;
}

void KESTRA_CALL MemoriaLlena(void* contexto) {
  static_cast<HostDialogs*>(contexto)->Answer();
}

}  // namespace

void HostDialogs::Hire(fuzz::Input& input) {
  const auto members = input.Byte();
  const auto size = input.Pick(kSizes);
  const KestraOperador whole{size, this, (members & 1U) != 0 ? nullptr : Mensaje,
                             (members & 2U) != 0 ? nullptr : InformeEstados,
                             (members & 4U) != 0 ? nullptr : MemoriaLlena};
  if ((members & 8U) != 0) return Kestra_DefinirOperador(nullptr);
  // Not a byte more than the record says.
  const auto own = std::min<std::size_t>(size, sizeof whole);
  const auto record = std::make_unique<char[]>(own);
  std::memcpy(record.get(), &whole, own);
  Kestra_DefinirOperador(reinterpret_cast<const KestraOperador*>(record.get()));
}

std::int32_t HostDialogs::Answer() {
  const auto answer = input_.Byte();
  if (answer >= 128) CallWithin(answer % 4U);
  return answer % 8;
}

}  // namespace kestra::fuzzing
