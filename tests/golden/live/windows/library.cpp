// Loaded for each case, and left after it.
#include "golden/live/library.hpp"

#include <windows.h>

#include <stdexcept>
#include <string>

#include "exports/exports.hpp"

namespace kestra::live {
namespace {

constexpr const wchar_t* kFile = L"Kestra.dll";

// The system's own stay, as in any program that has windows: they would come and go with the library.
void KeepSystemLibraries() {
  for (const auto* const file : {L"comctl32", L"ole32", L"oleaut32", L"ws2_32"}) LoadLibraryW(file);
}

}  // namespace

void LoadLibraryUnderTest() {
  [[maybe_unused]] static const bool once = (KeepSystemLibraries(), true);
  if (LoadLibraryW(kFile) != nullptr) return;
  throw std::runtime_error("Kestra.dll cannot be loaded: error " + std::to_string(GetLastError()));
}

bool LeaveLibraryUnderTest() {
  exports::Call(exports::Find("EP_Kill"), {});
  FreeLibrary(GetModuleHandleW(kFile));
  return GetModuleHandleW(kFile) == nullptr;
}

}  // namespace kestra::live

namespace kestra::exports {

std::int32_t Call(const Export& row, const Values& values) {
  const auto found = GetProcAddress(GetModuleHandleW(live::kFile), std::string(row.name).c_str());
  if (found == nullptr) throw std::runtime_error("Kestra.dll has no " + std::string(row.name));
  return row.call_at(reinterpret_cast<void*>(found), values);
}

}  // namespace kestra::exports
