#pragma once

#include <windows.h>

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

}  // namespace kestra
