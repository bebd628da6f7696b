#pragma once

#include <windows.h>
#include <optional>
#include <string_view>
#include <utility>

namespace kestra {

// A picture or font that frees itself.
template <typename T, auto Free>
class Graphic {
 public:
  Graphic() = default;
  explicit Graphic(T handle) : handle_(handle) {}
  Graphic(Graphic&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Graphic& operator=(Graphic&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  Graphic(const Graphic&) = delete;
  Graphic& operator=(const Graphic&) = delete;
  ~Graphic() {
    if (handle_ != nullptr) static_cast<void>(Free(handle_));
  }

  [[nodiscard]] T Get() const { return handle_; }

 private:
  T handle_ = nullptr;
};

inline BOOL FreeIcon(HICON icon) {
  return ::DestroyIcon(icon);
}
inline BOOL FreeFont(HFONT font) {
  return ::DeleteObject(font);
}

using Icon = Graphic<HICON, FreeIcon>;
using Font = Graphic<HFONT, FreeFont>;

enum class IconSize { kSmall, kLarge };

// A picture from the library's resources, in the size that the system wants such pictures.
Icon LoadIconResource(int number, IconSize size);

// A dialog from the library's resources, in the middle of the screen. An object shows it once.
class ModalDialog {
 public:
  ModalDialog(int dialog, int icon);
  ModalDialog(const ModalDialog&) = delete;
  ModalDialog& operator=(const ModalDialog&) = delete;
  virtual ~ModalDialog() = default;

  // Number of the button pressed; IDCANCEL for Esc and the close box. Throws Failure when the dialog
  // cannot be shown.
  int Show();

 protected:
  // Fills the window before it appears.
  virtual void Load() = 0;

  // Colour of a label; none: the system's.
  [[nodiscard]] virtual std::optional<COLORREF> LabelColour(int label) const;

  [[nodiscard]] HWND Window() const { return window_; }
  [[nodiscard]] HWND Control(int control) const { return ::GetDlgItem(window_, control); }
  // A control's text, in windows-1252.
  void SetText(int control, std::string_view text) const;
  void SetCaption(std::string_view text) const;
  void SetPicture(int control, const Icon& icon) const;

 private:
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM value);
  INT_PTR Receive(UINT message, WPARAM word, LPARAM value);
  void Open();
  void Centre() const;
  [[nodiscard]] INT_PTR PaintLabel(HDC device, HWND label) const;

  int dialog_;
  Icon small_icon_;
  Icon large_icon_;
  HWND window_ = nullptr;
  bool opened_ = false;
};

}  // namespace kestra
