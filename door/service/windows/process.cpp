#include "service/process.hpp"

#include <array>
#include <cstddef>
#include <map>
#include <stdexcept>

// Windows' own headers want this order.
#include <windows.h>

#include <ntsecapi.h>

namespace puerta {
namespace {

std::wstring Wide(const std::string& text) {
  const auto size = static_cast<int>(text.size());
  std::wstring wide(static_cast<std::size_t>(size), L'\0');
  const int count = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(count));
  return wide;
}

std::string Narrow(const std::wstring& wide) {
  const auto size = static_cast<int>(wide.size());
  std::string text(wide.size() * 3, '\0');
  const int count = ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(),
                                          static_cast<int>(text.size()), nullptr, nullptr);
  text.resize(static_cast<std::size_t>(count));
  return text;
}

class Child : public Process {
 public:
  explicit Child(HANDLE handle) : handle_(handle) {}
  ~Child() override { ::CloseHandle(handle_); }

  bool HasEnded() override { return ::WaitForSingleObject(handle_, 0) == WAIT_OBJECT_0; }

  std::string HowItEnded() const override {
    DWORD code = 0;
    ::GetExitCodeProcess(handle_, &code);
    return "código " + std::to_string(code);
  }

  void Kill() override { ::TerminateProcess(handle_, 1); }

 private:
  HANDLE handle_;
};

// What we have ourselves with what is given, each with a zero behind it, sorted as Windows wants it.
std::wstring Environment(const ProcessPlan& plan) {
  std::map<std::wstring, std::wstring> all;
  const auto add = [&all](const std::wstring& row) {
    const auto name = row.find(L'=', 1);
    if (name != std::wstring::npos) all[row.substr(0, name)] = row.substr(name);
  };
  wchar_t* const own = ::GetEnvironmentStringsW();
  for (const wchar_t* row = own; row != nullptr && *row != L'\0'; row += ::lstrlenW(row) + 1)
    add(row);
  ::FreeEnvironmentStringsW(own);
  for (const auto& row : plan.environment) add(Wide(row));
  std::wstring block;
  for (const auto& [name, value] : all) block.append(name).append(value).append(1, L'\0');
  return block.append(1, L'\0');
}

}  // namespace

std::unique_ptr<Process> StartProcess(const ProcessPlan& plan) {
  auto line = L'"' + Wide(plan.program) + L'"';
  for (const auto& word : plan.words) line += L" \"" + Wide(word) + L'"';
  auto environment = Environment(plan);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION made{};
  const auto folder = Wide(plan.folder);
  const BOOL done = ::CreateProcessW(Wide(plan.program).c_str(), line.data(), nullptr, nullptr,
                                     FALSE, CREATE_UNICODE_ENVIRONMENT | CREATE_NO_WINDOW,
                                     environment.data(), folder.c_str(), &start, &made);
  if (done == FALSE) throw std::runtime_error("error " + std::to_string(::GetLastError()));
  ::CloseHandle(made.hThread);
  return std::make_unique<Child>(made.hProcess);
}

std::string OwnProgram() {
  std::wstring name(32768, L'\0');
  const auto size = ::GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
  name.resize(size);
  return Narrow(name);
}

std::string RandomDigits(int bytes) {
  std::string digits;
  for (int i = 0; i < bytes; ++i) {
    unsigned char byte = 0;
    if (::RtlGenRandom(&byte, 1) == FALSE) throw std::runtime_error("no hay números al azar");
    digits += "0123456789abcdef"[byte >> 4];
    digits += "0123456789abcdef"[byte & 15];
  }
  return digits;
}

}  // namespace puerta
