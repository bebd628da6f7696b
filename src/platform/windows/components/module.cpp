#include "platform/windows/components/module.hpp"

#include "platform/windows/module.hpp"

namespace kestra {
namespace {

using EntryPoint = HRESULT(STDAPICALLTYPE*)();

}  // namespace

std::wstring ModulePath() {
  return PathOf(OwnModule());
}

LoadedLibrary::LoadedLibrary(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {}

LoadedLibrary::~LoadedLibrary() {
  if (module_ != nullptr) FreeLibrary(module_);
}

HRESULT LoadedLibrary::Call(const char* entry) const {
  if (module_ == nullptr) return E_NOINTERFACE;
  const auto address = reinterpret_cast<void*>(GetProcAddress(module_, entry));
  return address == nullptr ? E_NOINTERFACE : reinterpret_cast<EntryPoint>(address)();
}

}  // namespace kestra
