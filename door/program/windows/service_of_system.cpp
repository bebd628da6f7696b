#include "program/service_of_system.hpp"

#include <windows.h>

#include <shellapi.h>

#include <cstddef>
#include <memory>

namespace puerta {
namespace {

wchar_t kName[] = L"kestra-puerta";

// What the system's callbacks reach: there is one service in a process.
struct Service {
  const std::function<int()>* work = nullptr;
  const std::function<void()>* stop = nullptr;
  SERVICE_STATUS_HANDLE handle = nullptr;
  int result = 0;
};
Service service;

void Tell(DWORD state) {
  SERVICE_STATUS status{};
  status.dwServiceType = SERVICE_WIN32_OWN_PROCESS;
  status.dwCurrentState = state;
  status.dwControlsAccepted =
      state == SERVICE_RUNNING ? SERVICE_ACCEPT_STOP | SERVICE_ACCEPT_SHUTDOWN : 0;
  ::SetServiceStatus(service.handle, &status);
}

DWORD WINAPI Control(DWORD control, DWORD, void*, void*) {
  if (control == SERVICE_CONTROL_STOP || control == SERVICE_CONTROL_SHUTDOWN) {
    Tell(SERVICE_STOP_PENDING);
    (*service.stop)();
  }
  return NO_ERROR;
}

void WINAPI Main(DWORD, wchar_t**) {
  service.handle = ::RegisterServiceCtrlHandlerExW(kName, Control, nullptr);
  Tell(SERVICE_RUNNING);
  service.result = (*service.work)();
  Tell(SERVICE_STOPPED);
}

std::string Utf8(const wchar_t* wide) {
  const int size = ::WideCharToMultiByte(CP_UTF8, 0, wide, -1, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(size), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, wide, -1, text.data(), size, nullptr, nullptr);
  text.resize(text.size() - 1);  // the zero behind it
  return text;
}

}  // namespace

int RunAsService(const std::function<int()>& work, const std::function<void()>& stop) {
  service.work = &work;
  service.stop = &stop;
  const SERVICE_TABLE_ENTRYW table[] = {{kName, Main}, {nullptr, nullptr}};
  return ::StartServiceCtrlDispatcherW(table) != FALSE ? service.result : 1;
}

// The ones that main gets have lost the letters that this system's own set of them lacks.
std::vector<std::string> Words(int /*count*/, char** /*arguments*/) {
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&::LocalFree)> words(
      ::CommandLineToArgvW(::GetCommandLineW(), &count), ::LocalFree);
  std::vector<std::string> all;
  for (int i = 1; i < count; ++i) all.push_back(Utf8(words.get()[i]));
  return all;
}

}  // namespace puerta
