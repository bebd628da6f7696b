#pragma once

#include <array>

#include "platform/seam/operator.hpp"
#include "platform/windows/dialogs/hints.hpp"
#include "platform/windows/dialogs/modal_dialog.hpp"

namespace kestra {

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
