// A host that lies elsewhere than the library and the current directory:
//
//   careful_host LIBRARY     works with it, says yes to every box, and lists what it has loaded
//   careful_host -name FILE  asks the system for a library by a bare name
//
// Whoever plants a library where it must not be found sees here that it was not.
#include <windows.h>
// After it.
#include <tlhelp32.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

std::atomic<bool> over = false;
std::atomic<int> pressed = 0;

// The button that goes on: yes, close of the status report, accept.
BOOL CALLBACK Press(HWND window, LPARAM) {
  for (const int button : {IDYES, IDCANCEL, IDOK}) {
    if (IsWindowVisible(window) == FALSE || GetDlgItem(window, button) == nullptr) continue;
    PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(button), 0);
    ++pressed;
    break;
  }
  return TRUE;
}

DWORD WINAPI PressButtons(void* till) {
  while (!over) {
    EnumThreadWindows(*static_cast<DWORD*>(till), Press, 0);
    Sleep(50);
  }
  return 0;
}

template <class Function>
Function Entry(HMODULE library, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

std::int32_t Call(HMODULE library, const char* name) {
  return Entry<std::int32_t(__stdcall*)()>(library, name)();
}

void ListModules() {
  MODULEENTRY32 module = {};
  module.dwSize = sizeof module;
  const HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, GetCurrentProcessId());
  for (BOOL more = Module32First(all, &module); more != FALSE; more = Module32Next(all, &module)) {
    std::printf("module %s\n", module.szExePath);
  }
  CloseHandle(all);
}

void Work(HMODULE library) {
  std::array<char, 12> now{};
  std::printf("EP_Init %d\n", static_cast<int>(Call(library, "EP_Init")));
  const auto clock = Entry<std::int32_t(__stdcall*)(char*)>(library, "EP_ObtenerFechaHora");
  std::printf("EP_ObtenerFechaHora %d\n", static_cast<int>(clock(now.data())));
  std::printf("EP_CortaPapel %d\n", static_cast<int>(Call(library, "EP_CortaPapel")));
  // Nothing is open: the printer refuses it, and the operator sees the status report.
  std::printf("EP_Cancelar %d\n", static_cast<int>(Call(library, "EP_Cancelar")));
  ListModules();
  Call(library, "EP_Kill");
}

}  // namespace

int main(int count, char** words) {
  if (count == 3 && std::strcmp(words[1], "-name") == 0) {
    std::printf("%s\n", LoadLibraryA(words[2]) != nullptr ? "loaded" : "not found");
    return 0;
  }
  const HMODULE library = count == 2 ? LoadLibraryA(words[1]) : nullptr;
  if (library == nullptr) {
    std::printf("not loaded: %lu\n", GetLastError());
    return 1;
  }
  DWORD till = GetCurrentThreadId();
  const HANDLE thread = CreateThread(nullptr, 0, PressButtons, &till, 0, nullptr);
  Work(library);
  over = true;
  WaitForSingleObject(thread, INFINITE);
  std::printf("pressed %d\n", pressed.load());
  return 0;
}
