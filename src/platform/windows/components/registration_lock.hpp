#pragma once

#include <windows.h>

namespace kestra {

// Keeps two programs that start at the same moment from registering over each other. Best effort: a
// program that cannot have the lock goes on without it.
class RegistrationLock {
 public:
  RegistrationLock();
  RegistrationLock(const RegistrationLock&) = delete;
  RegistrationLock& operator=(const RegistrationLock&) = delete;
  ~RegistrationLock();

 private:
  HANDLE mutex_;
  bool held_ = false;
};

}  // namespace kestra
