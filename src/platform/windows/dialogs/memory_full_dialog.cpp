#include "platform/windows/dialogs/memory_full_dialog.hpp"

#include "platform/seam/dialog_words.hpp"
#include "platform/windows/dialogs/resource_ids.h"

namespace kestra {
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
