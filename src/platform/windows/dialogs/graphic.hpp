#pragma once

#include <windows.h>

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

}  // namespace kestra
