#include "dialog_reader.hpp"

#include <commctrl.h>

#include <array>
#include <cstdio>
#include <string>
#include <vector>

std::string Utf8(const std::wstring& wide) {
  const int units = static_cast<int>(wide.size());
  std::string utf8(wide.size() * 3, '\0');
  const int length = WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, utf8.data(),
                                         static_cast<int>(utf8.size()), nullptr, nullptr);
  utf8.resize(static_cast<std::size_t>(length));
  for (char& c : utf8) {
    if (c == '\n' || c == '\r' || c == '\t') c = '|';
  }
  return utf8;
}

// By a message, as the window itself tells it; a window that hangs tells nothing.
std::wstring TextOf(HWND window) {
  constexpr UINT kPatience = 600000;
  std::wstring text(4096, L'\0');
  DWORD_PTR length = 0;
  SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                      SMTO_ABORTIFHUNG, kPatience, &length);
  text.resize(length);
  return text;
}

std::wstring ClassOf(HWND window) {
  std::array<wchar_t, 64> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

namespace {

LONG_PTR StyleOf(HWND window) {
  return GetWindowLongPtrW(window, GWL_STYLE);
}

bool IsPicture(HWND control) {
  return ClassOf(control) == L"Static" && (StyleOf(control) & SS_TYPEMASK) == SS_ICON;
}

// A device to measure and paint on, in the font of a window. Colours of 32 bits.
class Canvas {
 public:
  static constexpr int kSide = 64;

  explicit Canvas(HFONT font) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = kSide;
    info.bmiHeader.biHeight = kSide;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    bitmap_ = CreateDIBSection(device_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
    old_bitmap_ = SelectObject(device_, bitmap_);
    old_font_ = SelectObject(device_, font);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  ~Canvas() {
    SelectObject(device_, old_font_);
    SelectObject(device_, old_bitmap_);
    DeleteObject(bitmap_);
    DeleteDC(device_);
  }

  [[nodiscard]] HDC Device() const { return device_; }

  // Size of a text: in one line, or broken where `width` ends.
  [[nodiscard]] SIZE Measure(const std::wstring& text, LONG width) const {
    RECT area{.left = 0, .top = 0, .right = width, .bottom = 0};
    const UINT flags = DT_CALCRECT | DT_NOPREFIX | (width > 0 ? DT_WORDBREAK : DT_SINGLELINE);
    DrawTextW(device_, text.c_str(), static_cast<int>(text.size()), &area, flags);
    return {.cx = area.right, .cy = area.bottom};
  }

  // Mean colour of the middle of an icon on white, as "red green blue".
  [[nodiscard]] std::string MeanOf(HICON icon) const {
    constexpr int kFirst = kSide / 4;
    PatBlt(device_, 0, 0, kSide, kSide, WHITENESS);
    DrawIconEx(device_, 0, 0, icon, kSide, kSide, 0, nullptr, DI_NORMAL);
    GdiFlush();
    std::array<int, 3> sum{};
    for (int i = kFirst; i < 3 * kFirst; ++i) {
      const COLORREF colour = GetPixel(device_, i, kSide / 4);
      sum[0] += GetRValue(colour);
      sum[1] += GetGValue(colour);
      sum[2] += GetBValue(colour);
    }
    std::string text;
    for (const int channel : sum) text += std::to_string(channel / (2 * kFirst)) + " ";
    return text;
  }

 private:
  HDC device_ = CreateCompatibleDC(nullptr);
  void* bits_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ old_bitmap_ = nullptr;
  HGDIOBJ old_font_ = nullptr;
};

// The window of a dialog's hints.
HWND HintWindowOf(HWND dialog) {
  HWND found = nullptr;
  for (;;) {
    found = FindWindowExW(nullptr, found, TOOLTIPS_CLASSW, nullptr);
    if (found == nullptr || GetWindow(found, GW_OWNER) == dialog) return found;
  }
}

struct Hint {
  RECT place;
  std::wstring text;
};

// Asked for once: each question waits for the dialog's own thread.
std::vector<Hint> HintsOf(HWND dialog) {
  const HWND hints = HintWindowOf(dialog);
  std::vector<Hint> all;
  std::array<wchar_t, 256> text{};
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.lpszText = text.data();
  const auto count = static_cast<WPARAM>(SendMessageW(hints, TTM_GETTOOLCOUNT, 0, 0));
  for (WPARAM i = 0; hints != nullptr && i < count; ++i) {
    SendMessageW(hints, TTM_ENUMTOOLSW, i, reinterpret_cast<LPARAM>(&tool));
    if (tool.hwnd == dialog) all.push_back({.place = tool.rect, .text = text.data()});
  }
  return all;
}

// A dialog while it is described.
struct Described {
  HWND window;
  std::vector<Hint> hints;
};

// The hint shown over the middle of a control.
std::wstring HintOf(const Described& dialog, HWND control) {
  RECT place{};
  GetWindowRect(control, &place);
  POINT middle{.x = (place.left + place.right) / 2, .y = (place.top + place.bottom) / 2};
  ScreenToClient(dialog.window, &middle);
  for (const Hint& hint : dialog.hints) {
    if (PtInRect(&hint.place, middle)) return hint.text;
  }
  return {};
}

struct Needs {
  SIZE size;
  COLORREF colour;
};

// Room that the text of a control takes, and the colour that the dialog gives it.
Needs NeedsOf(HWND dialog, HWND control, const RECT& place, const Canvas& canvas) {
  const bool broken = ClassOf(control) == L"Static" && (StyleOf(control) & SS_TYPEMASK) == SS_LEFT;
  const LONG width = broken ? place.right - place.left : 0;
  const SIZE size = canvas.Measure(TextOf(control), width);
  SendMessageW(dialog, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(canvas.Device()),
               reinterpret_cast<LPARAM>(control));
  return {.size = size, .colour = GetTextColor(canvas.Device())};
}

std::string PictureOf(HWND control, const Canvas& canvas) {
  if (!IsPicture(control)) return {};
  const LRESULT icon = SendMessageW(control, STM_GETICON, 0, 0);
  return icon == 0 ? "none" : canvas.MeanOf(reinterpret_cast<HICON>(icon));
}

BOOL CALLBACK DescribeControl(HWND control, LPARAM parent) {
  const Described& described = *reinterpret_cast<const Described*>(parent);
  const HWND dialog = described.window;
  RECT place{};
  GetWindowRect(control, &place);
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
  const Canvas canvas(reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
  const auto [size, colour] = NeedsOf(dialog, control, place, canvas);
  std::printf("control\t%d\t%s\t%ld\t%ld\t%ld\t%ld\t%ld\t%ld\t%06lx\t%s\t%s\t%s\n",
              GetDlgCtrlID(control), Utf8(ClassOf(control)).c_str(), place.left, place.top,
              place.right - place.left, place.bottom - place.top, size.cx, size.cy, colour,
              PictureOf(control, canvas).c_str(), Utf8(HintOf(described, control)).c_str(),
              Utf8(TextOf(control)).c_str());
  return TRUE;
}

// The caption with what stands beside it.
LONG CaptionWidth(const std::wstring& caption) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  const HFONT font = CreateFontIndirectW(&metrics.lfCaptionFont);
  const LONG width = Canvas(font).Measure(caption, 0).cx;
  DeleteObject(font);
  return width + 3 * GetSystemMetrics(SM_CXSIZE);
}

}  // namespace

void DescribeWindow(HWND window) {
  RECT place{};
  RECT client{};
  GetWindowRect(window, &place);
  GetClientRect(window, &client);
  const HWND owner = GetWindow(window, GW_OWNER);
  const char* ownership = owner == nullptr         ? "nobody"
                          : IsWindowEnabled(owner) ? "an enabled host"
                                                   : "a disabled host";
  std::printf("window\t%s\t%ld\t%ld\t%ld\t%ld\t%s\t%ld\n", Utf8(TextOf(window)).c_str(), place.left,
              place.top, place.right - place.left, place.bottom - place.top, ownership,
              CaptionWidth(TextOf(window)));
  std::printf("client\t%ld\t%ld\n", client.right, client.bottom);
  const Described described{.window = window, .hints = HintsOf(window)};
  EnumChildWindows(window, DescribeControl, reinterpret_cast<LPARAM>(&described));
}
