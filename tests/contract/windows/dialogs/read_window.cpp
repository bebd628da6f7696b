// Prints what is on a dialog of another program, a line each, fields apart by tabs, texts in UTF-8:
//
//   control  number class middle_x middle_y text
//
//   read_window CAPTION     exits with 1 when there is no dialog of that caption to be answered, in its place
//                           and painted
#include <windows.h>

#include <cstdio>
#include <string>

#include "dialog_reader.hpp"

namespace {

struct Search {
  std::wstring caption;
  HWND found = nullptr;
};

// While the window manager takes it into its frame, its place is told relative to that.
bool IsInItsPlace(HWND window) {
  RECT place{};
  return GetWindowRect(window, &place) != FALSE && place.left >= 0 && place.top >= 0;
}

BOOL CALLBACK KeepDialog(HWND window, LPARAM told) {
  auto& search = *reinterpret_cast<Search*>(told);
  if (!IsWindowVisible(window) || !IsWindowEnabled(window) || ClassOf(window) != L"#32770")
    return TRUE;
  if (TextOf(window) != search.caption) return TRUE;
  search.found = window;
  return FALSE;
}

BOOL CALLBACK PrintControl(HWND control, LPARAM /*told*/) {
  RECT place{};
  GetWindowRect(control, &place);
  std::printf("control\t%d\t%s\t%ld\t%ld\t%s\n", GetDlgCtrlID(control),
              Utf8(ClassOf(control)).c_str(), (place.left + place.right) / 2,
              (place.top + place.bottom) / 2, Utf8(TextOf(control)).c_str());
  return TRUE;
}

}  // namespace

int main() {
  int count = 0;
  LPWSTR* const words = CommandLineToArgvW(GetCommandLineW(), &count);
  if (count != 2) return 2;
  Search search{.caption = words[1]};
  EnumWindows(KeepDialog, reinterpret_cast<LPARAM>(&search));
  if (search.found == nullptr || !IsInItsPlace(search.found)) return 1;
  RedrawWindow(search.found, nullptr, nullptr, RDW_ALLCHILDREN | RDW_INVALIDATE | RDW_UPDATENOW);
  EnumChildWindows(search.found, PrintControl, 0);
  return 0;
}
