#pragma once

#include <windows.h>
#include <new>
#include <utility>

namespace kestra {

// One counted reference to a component.
template <typename Interface>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(const ComPtr&) = delete;
  ComPtr& operator=(const ComPtr&) = delete;
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_ != nullptr) object_->Release();
  }

  Interface* operator->() const { return object_; }
  [[nodiscard]] Interface* Get() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // Where a function puts the reference that it hands over; only while empty.
  Interface** Receive() { return &object_; }
  void** ReceiveAny() { return reinterpret_cast<void**>(&object_); }

 private:
  Interface* object_ = nullptr;
};

// Runs the body of a component's method; callers know results, not exceptions.
template <typename Body>
HRESULT ComGuard(Body body) noexcept {
  try {
    return body();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

}  // namespace kestra
