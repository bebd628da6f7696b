#include "platform/windows/dialogs/status_report_dialog.hpp"

#include <algorithm>

#include "dialogs/status_report.hpp"
#include "platform/windows/dialogs/resource_ids.h"
#include "platform/windows/text.hpp"

namespace kestra {
namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlack = RGB(0, 0, 0);

struct Text {
  int control;
  std::string_view text;
};

constexpr std::array kTexts = {
    Text{Frame1, kInformeGrupoImpresora}, Text{Frame2, kInformeGrupoFiscal},
    Text{Frame3, kInformeGrupoEstados},   Text{Label4, kInformeImpresora},
    Text{Label5, kInformeFiscal},         Text{btn_Reintentar, kBotonReintentar},
    Text{btn_aceptar, kBotonCerrar},
};

int IconOf(const Fila& fila) {
  return (fila.grupo == 0 ? pic_EstadoImpresora_ : pic_EstadoFiscal_) + fila.numero;
}

int LabelOf(const Fila& fila) {
  return (fila.grupo == 0 ? txt_EstadoImpresora_ : txt_EstadoFiscal_) + fila.numero;
}

Icon RowIcon(int number) {
  return LoadIconResource(number, IconSize::kSmall);
}

}  // namespace

StatusReportDialog::StatusReportDialog(const InformeEstados& informe)
    : ModalDialog(frm_InformeEstados, ICON_KESTRA),
      informe_(informe),
      pictures_{{{RowIcon(pic_infodisabled), RowIcon(pic_info)},
                 {RowIcon(pic_errordisabled), RowIcon(pic_error)}}} {}

void StatusReportDialog::Load() {
  SetCaption(kInformeTitulo);
  for (const auto& [control, text] : kTexts) SetText(control, text);
  Hints hints(Window());
  for (const Fila& fila : informe_.filas) LoadRow(fila, hints);
  ::MessageBeep(MB_OK);
  SetText(txt_EstadoImpresora, informe_.impresora);
  SetText(txt_estadofiscal, informe_.fiscal);
}

void StatusReportDialog::LoadRow(const Fila& fila, Hints& hints) const {
  SetText(LabelOf(fila), fila.texto);
  SetPicture(IconOf(fila), pictures_.at(fila.error ? 1 : 0).at(fila.encendida ? 1 : 0));
  hints.Add(AreaOf(fila), WideFromAnsi(fila.ayuda).c_str());
}

// From the picture to the end of the label, in the window's coordinates.
RECT StatusReportDialog::AreaOf(const Fila& fila) const {
  RECT picture{};
  RECT area{};
  ::GetWindowRect(Control(IconOf(fila)), &picture);
  ::GetWindowRect(Control(LabelOf(fila)), &area);
  area.left = picture.left;
  ::MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&area), 2);
  return area;
}

std::optional<COLORREF> StatusReportDialog::LabelColour(int label) const {
  const auto fila = std::find_if(informe_.filas.begin(), informe_.filas.end(),
                                 [&](const Fila& each) { return LabelOf(each) == label; });
  if (fila == informe_.filas.end()) return std::nullopt;
  if (!fila->encendida) return ::GetSysColor(COLOR_GRAYTEXT);
  return fila->error ? kRed : kBlack;
}

}  // namespace kestra
