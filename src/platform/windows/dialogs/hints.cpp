#include "platform/windows/dialogs/hints.hpp"

#include <commctrl.h>

#include "platform/windows/dialogs/host_program.hpp"

namespace kestra {
namespace {

constexpr int kWidthInCharacters = 60;
constexpr LPARAM kMillisecondsShown = 20000;

int CharacterWidth(HWND dialog) {
  RECT four_characters{.left = 0, .top = 0, .right = 16, .bottom = 8};
  ::MapDialogRect(dialog, &four_characters);
  return static_cast<int>(four_characters.right) / 4;
}

}  // namespace

Hints::Hints(HWND dialog) : dialog_(dialog) {
  const INITCOMMONCONTROLSEX controls{.dwSize = sizeof controls, .dwICC = ICC_BAR_CLASSES};
  ::InitCommonControlsEx(&controls);
  window_ = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                              WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, dialog, nullptr,
                              OwnInstance(), nullptr);
  // With a width given, longer texts break into lines.
  ::SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, kWidthInCharacters * CharacterWidth(dialog));
  ::SendMessageW(window_, TTM_SETDELAYTIME, TTDT_AUTOPOP, kMillisecondsShown);
}

void Hints::Add(const RECT& area, const wchar_t* text) {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;  // libraries that come without a manifest refuse a larger one
  tool.uFlags = TTF_SUBCLASS;
  tool.hwnd = dialog_;
  tool.uId = count_++;
  tool.rect = area;
  tool.lpszText = const_cast<wchar_t*>(text);
  ::SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace kestra
