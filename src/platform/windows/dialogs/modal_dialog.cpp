#include "platform/windows/dialogs/modal_dialog.hpp"

#include "base/failure.hpp"
#include "platform/windows/module.hpp"
#include "platform/windows/text.hpp"

namespace kestra {

Icon LoadIconResource(int number, IconSize size) {
  const bool small_one = size == IconSize::kSmall;
  return Icon(static_cast<HICON>(
      ::LoadImageW(OwnModule(), MAKEINTRESOURCEW(number), IMAGE_ICON,
                   ::GetSystemMetrics(small_one ? SM_CXSMICON : SM_CXICON),
                   ::GetSystemMetrics(small_one ? SM_CYSMICON : SM_CYICON), LR_DEFAULTCOLOR)));
}

ModalDialog::ModalDialog(int dialog, int icon)
    : dialog_(dialog),
      small_icon_(LoadIconResource(icon, IconSize::kSmall)),
      large_icon_(LoadIconResource(icon, IconSize::kLarge)) {}

int ModalDialog::Show() {
  const INT_PTR answer =
      ::DialogBoxParamW(OwnModule(), MAKEINTRESOURCEW(dialog_), ::GetActiveWindow(), Procedure,
                        reinterpret_cast<LPARAM>(this));
  if (!opened_) throw OutOfMemory();
  return static_cast<int>(answer);
}

std::optional<COLORREF> ModalDialog::LabelColour(int /*label*/) const {
  return std::nullopt;
}

void ModalDialog::SetText(int control, std::string_view text) const {
  ::SetDlgItemTextW(window_, control, WideFromAnsi(text).c_str());
}

void ModalDialog::SetCaption(std::string_view text) const {
  ::SetWindowTextW(window_, WideFromAnsi(text).c_str());
}

void ModalDialog::SetPicture(int control, const Icon& icon) const {
  ::SendDlgItemMessageW(window_, control, STM_SETICON, reinterpret_cast<WPARAM>(icon.Get()), 0);
}

// Nothing thrown may pass through the system's frames: a dialog that fails to open is taken back.
INT_PTR CALLBACK ModalDialog::Procedure(HWND window, UINT message, WPARAM word, LPARAM value) {
  if (message == WM_INITDIALOG) {
    ::SetWindowLongPtrW(window, DWLP_USER, value);
    reinterpret_cast<ModalDialog*>(value)->window_ = window;
  }
  // Some messages come before the first one of the dialog's own.
  auto* dialog = reinterpret_cast<ModalDialog*>(::GetWindowLongPtrW(window, DWLP_USER));
  if (dialog == nullptr) return FALSE;
  try {
    return dialog->Receive(message, word, value);
  } catch (...) {
    ::EndDialog(window, IDCANCEL);
    return FALSE;
  }
}

INT_PTR ModalDialog::Receive(UINT message, WPARAM word, LPARAM value) {
  switch (message) {
    case WM_INITDIALOG:
      Open();
      return FALSE;  // the focus is set
    case WM_COMMAND:
      if (HIWORD(word) != BN_CLICKED) return FALSE;
      if (LOWORD(word) != IDCANCEL && LOWORD(word) != IDRETRY) return FALSE;
      return ::EndDialog(window_, LOWORD(word));
    case WM_CTLCOLORSTATIC:
      return PaintLabel(reinterpret_cast<HDC>(word), reinterpret_cast<HWND>(value));
    default:
      return FALSE;
  }
}

void ModalDialog::Open() {
  ::SendMessageW(window_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small_icon_.Get()));
  ::SendMessageW(window_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(large_icon_.Get()));
  Centre();
  Load();
  ::SetFocus(Control(IDCANCEL));
  // A host without a window has no place before the others that its dialog could inherit.
  if (::GetWindow(window_, GW_OWNER) == nullptr) ::SetForegroundWindow(window_);
  opened_ = true;
}

void ModalDialog::Centre() const {
  RECT place{};
  ::GetWindowRect(window_, &place);
  const int left = (::GetSystemMetrics(SM_CXSCREEN) - (place.right - place.left)) / 2;
  const int top = (::GetSystemMetrics(SM_CYSCREEN) - (place.bottom - place.top)) / 2;
  ::SetWindowPos(window_, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

INT_PTR ModalDialog::PaintLabel(HDC device, HWND label) const {
  const auto colour = LabelColour(::GetDlgCtrlID(label));
  if (!colour) return FALSE;
  ::SetTextColor(device, *colour);
  ::SetBkColor(device, ::GetSysColor(COLOR_BTNFACE));
  return reinterpret_cast<INT_PTR>(::GetSysColorBrush(COLOR_BTNFACE));
}

}  // namespace kestra
