#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "exports/exports.hpp"
#include "hostile/shared/lone_page.hpp"
#include "watch.hpp"

namespace armour {

using kestra::exports::Export;
using kestra::exports::Exports;
using kestra::exports::Find;
using kestra::exports::Kind;
using kestra::exports::Nature;
using kestra::exports::Parameter;
using kestra::hostile::LonePage;

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
  // The call of an export with those values.
  static Target Of(const Export& exported, const kestra::exports::Values& values);

 private:
  std::vector<std::uintptr_t> words_;
};

// The operator: answers every question with yes and counts what it was shown, instead of boxes that nobody
// presses.
void TakeTheOperatorsPlace();
int Shown();

// Both, and the start.
void StartLibraryUnderTest();

}  // namespace armour
