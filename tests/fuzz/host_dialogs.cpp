#include "fuzz/host_dialogs.hpp"

#include <memory>

#include "fuzz/calls.hpp"
#include "kestra/kestra.h"

namespace kestra::fuzzing {
namespace {

using fuzz::Require;

constexpr std::array<std::uint32_t, 8> kSizes{
    sizeof(KestraOperador), sizeof(KestraOperador), sizeof(KestraOperador), 1000, 32, 24, 16, 4};

std::int32_t KESTRA_CALL Message(void* context, const char* text, const char* title,
                                 std::int32_t style) {
  Require(text != nullptr && title != nullptr, "a box has a text and a title");
  Require(std::strlen(text) > 0, "and says something");
  Require(style == 0 || style == 4 || style == 36, "in a known style");
  return static_cast<HostDialogs*>(context)->Answer();
}

std::int32_t KESTRA_CALL Report(void* context, const char* printer, const char* fiscal,
                                const KestraFila* rows, std::int32_t count) {
  Require(std::strlen(printer) + std::strlen(fiscal) < 1000 && count == 23, "two words, all rows");
  for (std::int32_t i = 0; i < count; ++i) {
    Require(rows[i].grupo == 0 || rows[i].grupo == 1, "each of a group");
    Require(std::strlen(rows[i].texto) > 0 && std::strlen(rows[i].ayuda) > 0, "with its words");
  }
  return static_cast<HostDialogs*>(context)->Answer() % 2;
}

void KESTRA_CALL MemoryFull(void* context) {
  static_cast<HostDialogs*>(context)->Answer();
}

}  // namespace

void HostDialogs::Hire(fuzz::Input& input) {
  const auto members = input.Byte();
  const auto size = input.Pick(kSizes);
  const KestraOperador whole{size, this, (members & 1U) != 0 ? nullptr : Message,
                             (members & 2U) != 0 ? nullptr : Report,
                             (members & 4U) != 0 ? nullptr : MemoryFull};
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
