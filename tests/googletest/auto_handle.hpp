#pragma once

#include <windows.h>

// GoogleTest built for one thread leaves this class of its own out, and its death tests need it all the same.
namespace testing::internal {

class AutoHandle {
 public:
  using Handle = HANDLE;

  AutoHandle() = default;
  explicit AutoHandle(Handle handle) : handle_(handle) {}
  AutoHandle(const AutoHandle&) = delete;
  AutoHandle& operator=(const AutoHandle&) = delete;
  ~AutoHandle() { Reset(); }

  Handle Get() const { return handle_; }
  void Reset() { Reset(INVALID_HANDLE_VALUE); }
  void Reset(Handle handle) {
    if (handle == handle_) return;
    if (handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE) ::CloseHandle(handle_);
    handle_ = handle;
  }

 private:
  Handle handle_ = INVALID_HANDLE_VALUE;
};

}  // namespace testing::internal
