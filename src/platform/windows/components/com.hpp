#pragma once

#include <windows.h>
#include <atomic>
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

// What keeps the library in memory: live objects, and locks that clients hold on their factories.
class Use {
 public:
  static void Add() { ++count_; }
  static void Remove() { --count_; }
  static bool Any() { return count_ > 0; }

 private:
  static inline std::atomic<long> count_ = 0;
};

// Counts the references to an object, and the object among those in use.
class References {
 public:
  References() { Use::Add(); }
  References(const References&) = delete;
  References& operator=(const References&) = delete;
  ~References() { Use::Remove(); }

  ULONG Add() { return ++count_; }
  ULONG Remove() { return --count_; }

 private:
  std::atomic<ULONG> count_ = 1;
};

}  // namespace kestra
