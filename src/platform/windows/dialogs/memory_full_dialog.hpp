#pragma once

#include "platform/windows/dialogs/modal_dialog.hpp"

namespace kestra {

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
