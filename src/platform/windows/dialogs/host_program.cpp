#include "platform/windows/dialogs/host_program.hpp"

#include "platform/windows/module.hpp"

namespace kestra {
std::wstring HostName() {
  const std::wstring path = PathOf(nullptr);
  const std::wstring file = path.substr(path.find_last_of(L"\\/") + 1);
  return file.substr(0, file.rfind(L'.'));
}

HINSTANCE OwnInstance() {
  return OwnModule();
}

}  // namespace kestra
