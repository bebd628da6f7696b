#include "platform/windows/components/registration_lock.hpp"

namespace kestra {
namespace {

// Registering takes milliseconds; whoever holds the lock this long has died or hangs.
constexpr DWORD kPatienceMs = 5000;

// The tills of one machine may run under several users: each of them may take the lock.
HANDLE OpenForEveryone() {
  SECURITY_DESCRIPTOR everyone{};
  InitializeSecurityDescriptor(&everyone, SECURITY_DESCRIPTOR_REVISION);
  SetSecurityDescriptorDacl(&everyone, TRUE, nullptr, FALSE);
  SECURITY_ATTRIBUTES attributes{sizeof(SECURITY_ATTRIBUTES), &everyone, FALSE};
  return CreateMutexW(&attributes, FALSE, L"Global\\Kestra.Registration");
}

}  // namespace

RegistrationLock::RegistrationLock() : mutex_(OpenForEveryone()) {
  if (mutex_ == nullptr) return;
  const DWORD waited = WaitForSingleObject(mutex_, kPatienceMs);
  held_ = waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED;
}

RegistrationLock::~RegistrationLock() {
  if (held_) ReleaseMutex(mutex_);
  if (mutex_ != nullptr) CloseHandle(mutex_);
}

}  // namespace kestra
