#pragma once

#include <windows.h>
#include <array>

#include "platform/seam/operator.hpp"
#include "platform/windows/dialogs/modal_dialog.hpp"

namespace kestra {

// Hints that appear where the pointer rests on a dialog. Their window belongs to the dialog, and goes
// with it.
class Hints {
 public:
  explicit Hints(HWND dialog);

  // The text is copied.
  void Add(const RECT& area, const wchar_t* text);

 private:
  HWND dialog_;
  HWND window_;
  UINT count_ = 0;
};

// Every condition of the printer as a row, lit or greyed. Answers IDRETRY or IDCANCEL.
class StatusReportDialog : public ModalDialog {
 public:
  explicit StatusReportDialog(const Report& report);

 protected:
  void Load() override;
  [[nodiscard]] std::optional<COLORREF> LabelColour(int label) const override;

 private:
  void LoadRow(const StatusRow& row, Hints& hints) const;
  [[nodiscard]] RECT AreaOf(const StatusRow& row) const;

  const Report& report_;
  // By Fila::error and Fila::encendida.
  std::array<std::array<Icon, 2>, 2> pictures_;
};

// The warning that the fiscal memory is nearly full.
class MemoryFullDialog : public ModalDialog {
 public:
  MemoryFullDialog();

 protected:
  void Load() override;

 private:
  Icon picture_;
  Font heading_;
};

}  // namespace kestra
