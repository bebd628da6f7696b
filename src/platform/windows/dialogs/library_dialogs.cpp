#include "platform/windows/dialogs/library_dialogs.hpp"

#include <commctrl.h>
#include <algorithm>

#include "platform/seam/dialog_words.hpp"
#include "platform/windows/dialogs/resource_ids.h"
#include "platform/windows/module.hpp"
#include "platform/windows/text.hpp"

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
                              OwnModule(), nullptr);
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

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlack = RGB(0, 0, 0);

struct Text {
  int control;
  std::string_view text;
};

constexpr std::array kTexts = {
    Text{Frame1, kReportPrinterGroup}, Text{Frame2, kReportFiscalGroup},
    Text{Frame3, kReportStatusGroup},  Text{Label4, kReportPrinter},
    Text{Label5, kReportFiscal},       Text{btn_Reintentar, kRetryButton},
    Text{btn_aceptar, kCloseButton},
};

int IconOf(const StatusRow& row) {
  return (row.group == 0 ? pic_EstadoImpresora_ : pic_EstadoFiscal_) + row.number;
}

int LabelOf(const StatusRow& row) {
  return (row.group == 0 ? txt_EstadoImpresora_ : txt_EstadoFiscal_) + row.number;
}

Icon RowIcon(int number) {
  return LoadIconResource(number, IconSize::kSmall);
}

}  // namespace

StatusReportDialog::StatusReportDialog(const Report& report)
    : ModalDialog(frm_InformeEstados, ICON_KESTRA),
      report_(report),
      pictures_{{{RowIcon(pic_infodisabled), RowIcon(pic_info)},
                 {RowIcon(pic_errordisabled), RowIcon(pic_error)}}} {}

void StatusReportDialog::Load() {
  SetCaption(kReportTitle);
  for (const auto& [control, text] : kTexts) SetText(control, text);
  Hints hints(Window());
  for (const StatusRow& row : report_.rows) LoadRow(row, hints);
  ::MessageBeep(MB_OK);
  SetText(txt_EstadoImpresora, report_.printer);
  SetText(txt_estadofiscal, report_.fiscal);
}

void StatusReportDialog::LoadRow(const StatusRow& row, Hints& hints) const {
  SetText(LabelOf(row), row.text);
  SetPicture(IconOf(row), pictures_.at(row.error ? 1 : 0).at(row.lit ? 1 : 0));
  hints.Add(AreaOf(row), WideFromAnsi(row.hint).c_str());
}

// From the picture to the end of the label, in the window's coordinates.
RECT StatusReportDialog::AreaOf(const StatusRow& row) const {
  RECT picture{};
  RECT area{};
  ::GetWindowRect(Control(IconOf(row)), &picture);
  ::GetWindowRect(Control(LabelOf(row)), &area);
  area.left = picture.left;
  ::MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&area), 2);
  return area;
}

std::optional<COLORREF> StatusReportDialog::LabelColour(int label) const {
  const auto row = std::find_if(report_.rows.begin(), report_.rows.end(),
                                [&](const StatusRow& each) { return LabelOf(each) == label; });
  if (row == report_.rows.end()) return std::nullopt;
  if (!row->lit) return ::GetSysColor(COLOR_GRAYTEXT);
  return row->error ? kRed : kBlack;
}

namespace {

// The dialog's own font, half as large again and bold.
Font HeadingFont(HWND dialog) {
  LOGFONTW font{};
  const auto own = reinterpret_cast<HFONT>(::SendMessageW(dialog, WM_GETFONT, 0, 0));
  ::GetObjectW(own, sizeof font, &font);
  font.lfHeight = font.lfHeight * 3 / 2;
  font.lfWidth = 0;
  font.lfWeight = FW_BOLD;
  return Font(::CreateFontIndirectW(&font));
}

}  // namespace

MemoryFullDialog::MemoryFullDialog()
    : ModalDialog(frm_Memoriallena, ICON_WARNING),
      picture_(LoadIconResource(ICON_WARNING, IconSize::kLarge)) {}

void MemoryFullDialog::Load() {
  SetCaption(kMemoryFullTitle);
  SetPicture(MEMORY_ICON, picture_);
  heading_ = HeadingFont(Window());
  ::SendMessageW(Control(Label1), WM_SETFONT, reinterpret_cast<WPARAM>(heading_.Get()), 0);
  SetText(Label1, kMemoryFullHeading);
  SetText(Label2, kMemoryFullText);
  SetText(btn_Aceptar, kCloseButton);
}

}  // namespace kestra
