#pragma once

#include <windows.h>

#include <string>

namespace kestra {

// Full path of the file that this code was loaded from, whatever the host renamed it to.
std::wstring ModulePath();

// A reference to a loaded library file.
class LoadedLibrary {
 public:
  explicit LoadedLibrary(const std::wstring& path);
  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;
  ~LoadedLibrary();

  // Calls an entry point without arguments. E_NOINTERFACE when the file or the entry is missing.
  [[nodiscard]] HRESULT Call(const char* entry) const;

 private:
  HMODULE module_;
};

}  // namespace kestra
