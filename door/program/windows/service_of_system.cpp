#include "program/service_of_system.hpp"

#include <windows.h>

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

}  // namespace

int RunAsService(const std::function<int()>& work, const std::function<void()>& stop) {
  service.work = &work;
  service.stop = &stop;
  const SERVICE_TABLE_ENTRYW table[] = {{kName, Main}, {nullptr, nullptr}};
  return ::StartServiceCtrlDispatcherW(table) != FALSE ? service.result : 1;
}

}  // namespace puerta
