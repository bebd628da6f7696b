#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "watch.hpp"

namespace armour {

struct Parameter {
  char kind = 0;
  std::size_t size = 0;

  [[nodiscard]] bool IsPointer() const { return kind != 'i' && kind != 'd'; }
};

// A function that the library exports, and the letters of its parameters: t50 a text of 50 bytes, z a text
// with a zero behind it, o12 room for a result of 12 bytes, i an integer, d an amount, g the name of a class
// or interface, k the operator's record.
struct Export {
  std::string_view name;
  std::string_view parameters;
};

const std::vector<Export>& Exports();
const Export& Find(std::string_view name);
std::vector<Parameter> ParametersOf(const Export& exported);

// Every name that the loaded file itself exports.
std::vector<std::string_view> NamesInFile();

// Loads Kestra.dll from the current directory; ends the process when it cannot.
void LoadLibraryUnderTest();
std::uintptr_t AddressOf(std::string_view name);

// A call that is put together argument by argument.
class Words {
 public:
  Words& Integer(std::int32_t value);
  Words& Number(std::uint64_t bits);
  Words& Address(const void* value);
  [[nodiscard]] Target For(std::string_view name) const;

 private:
  std::vector<std::uintptr_t> words_;
};

// The operator: answers every question with yes and counts what it was shown, instead of boxes that nobody
// presses.
void TakeTheOperatorsPlace();
int Shown();

}  // namespace armour
