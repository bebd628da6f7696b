#include "platform/windows/dialogs/window_operator.hpp"

#include <windows.h>

#include "platform/shared/text.hpp"
#include "platform/windows/dialogs/library_dialogs.hpp"
#include "platform/windows/module.hpp"
#include "platform/windows/text.hpp"

namespace kestra {
namespace {

// Name of the host's program: its file without folder and extension. The title of every box that has
// none of its own.
std::wstring HostName() {
  const std::wstring path = PathOf(nullptr);
  const std::wstring file = path.substr(path.find_last_of(L"\\/") + 1);
  return file.substr(0, file.rfind(L'.'));
}

// Is there somebody who could see a window of this process? A service's windows are on a desktop that
// no screen shows, and would wait there for ever.
bool DesktopIsSeen() {
  USEROBJECTFLAGS flags{};
  const bool told = ::GetUserObjectInformationW(::GetProcessWindowStation(), UOI_FLAGS, &flags,
                                                sizeof flags, nullptr) != 0;
  return !told || (flags.dwFlags & WSF_VISIBLE) != 0;
}

// Texts break their lines with a lone carriage return, which not every system shows as a break.
std::string WithLineEnds(std::string_view text) {
  std::string lines;
  for (std::size_t i = 0; i < text.size(); ++i) {
    lines += text[i];
    if (text[i] == '\r' && text.substr(i + 1, 1) != "\n") lines += '\n';
  }
  return lines;
}

// Nobody is there to press: what does no harm.
std::int32_t SafeAnswer(std::int32_t style) {
  return (style & MB_TYPEMASK) == MB_YESNO ? kAnswerNo : kAnswerOk;
}

}  // namespace

std::int32_t WindowOperator::Message(std::string_view text, std::string_view title,
                                     std::int32_t style) {
  if (!DesktopIsSeen()) return SafeAnswer(style);
  constexpr UINT kWithoutOwner = MB_SETFOREGROUND | MB_TASKMODAL;
  const HWND owner = ::GetActiveWindow();
  const std::wstring caption = title.empty() ? HostName() : WideFromAnsi(title);
  const std::wstring prompt = WideFromAnsi(WithLineEnds(ShownText(text)));
  return ::MessageBoxW(owner, prompt.c_str(), caption.c_str(),
                       static_cast<UINT>(style) | (owner == nullptr ? kWithoutOwner : 0));
}

bool WindowOperator::StatusReport(const Report& report) {
  return DesktopIsSeen() && StatusReportDialog(report).Show() == IDRETRY;
}

void WindowOperator::MemoryFull() {
  if (DesktopIsSeen()) MemoryFullDialog().Show();
}

}  // namespace kestra
