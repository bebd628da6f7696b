#include "platform/windows/components/registration.hpp"

#include <algorithm>
#include <vector>

#include "platform/windows/components/public_classes.hpp"
#include "platform/windows/components/registration_rows.hpp"

namespace kestra {

namespace {

constexpr const wchar_t* kTemporary = L"KestraTemporary";

// The key whose value is the file that a hive's registration names.
std::wstring FileKey(Classes classes) {
  return ClassKey(classes.front()) + L"\\InprocServer32";
}

std::wstring RegisteredFile(const Hive& hive, Classes classes) {
  return ReadText(hive, FileKey(classes), {});
}

std::wstring LastingFile(const Hive& hive) {
  const auto key = FileKey(PublicClasses());
  return HasValue(hive, key, kTemporary) ? std::wstring() : ReadText(hive, key, {});
}

std::wstring LongName(const std::wstring& path) {
  std::wstring longer(path.size() + MAX_PATH, L'\0');
  const DWORD room = static_cast<DWORD>(longer.size());
  const DWORD length = GetLongPathNameW(path.c_str(), longer.data(), room);
  return length == 0 || length >= room ? path : longer.substr(0, length);
}

bool SameFile(const std::wstring& left, const std::wstring& right) {
  return lstrcmpiW(LongName(left).c_str(), LongName(right).c_str()) == 0;
}

bool LeadsTo(const Hive& hive, Classes classes, const std::wstring& module) {
  return SameFile(RegisteredFile(hive, classes), module);
}

bool Complete(const Hive& hive, const std::wstring& module) {
  const auto rows = RegistrationRows(PublicClasses(), module);
  return std::all_of(rows.begin(), rows.end(), [&](const RegistrationRow& row) {
    return lstrcmpiW(ReadText(hive, row.key, row.name).c_str(), row.text.c_str()) == 0;
  });
}

// Longest first: each key comes before the one that it lies in.
LSTATUS RemoveKeys(const Hive& hive, const std::vector<std::wstring>& keys) {
  LSTATUS first_error = ERROR_SUCCESS;
  for (const auto& key : keys) {
    const LSTATUS error = RemoveKey(hive, key);
    if (first_error == ERROR_SUCCESS) first_error = error;
  }
  return first_error;
}

LSTATUS Remove(const Hive& hive, Classes classes, const std::wstring& module) {
  const auto rows = RegistrationRows(classes, module);
  const LSTATUS error = RemoveKeys(hive, OwnKeys(rows));
  const Hive other = OtherWidth(hive);
  // Both widths live by the names and the library's entry: whoever goes last takes them along.
  if (RegisteredFile(other, classes).empty()) {
    RemoveKeys(hive, WithoutForeignNames(hive, classes, AllKeys(rows)));
    RemoveKeys(other, WithoutForeignNames(other, classes, SharedKeys(rows)));
  }
  if (hive.root == HKEY_CURRENT_USER) {
    // A user who never had a class of his own had no such keys either.
    for (const auto* const top : kTopKeys) RemoveEmptyKey(hive, top);
  }
  return error;
}

LSTATUS Write(const Hive& hive, Classes classes, const std::wstring& module) {
  for (const auto& row : RegistrationRows(classes, module)) {
    const LSTATUS error = WriteText(hive, row.key, row.name, row.text);
    if (error != ERROR_SUCCESS) return error;
  }
  RemoveValue(hive, FileKey(classes), kTemporary);
  return ERROR_SUCCESS;
}

// All of it or nothing.
LSTATUS WriteWhole(const Hive& hive, Classes classes, const std::wstring& module) {
  const auto names = ForeignNames::Read(hive, classes);
  const LSTATUS error = Write(hive, classes, module);
  if (error != ERROR_SUCCESS && LeadsTo(hive, classes, module)) {
    Remove(hive, classes, module);
    names.Restore(hive);
  }
  return error;
}

LSTATUS RemoveOwn(const Hive& hive, Classes classes, const std::wstring& module) {
  const auto file = RegisteredFile(hive, classes);
  return file.empty() || SameFile(file, module) ? Remove(hive, classes, module) : ERROR_SUCCESS;
}

void RestoreFile(const Hive& hive, const std::wstring& file) {
  if (file.empty() || RegisteredFile(hive, PublicClasses()) == file) return;
  Write(hive, PublicClasses(), file);
}

void MarkIfOwn(const Hive& hive, const std::wstring& module) {
  if (NamesFile(hive, module)) WriteText(hive, FileKey(PublicClasses()), kTemporary, L"1");
}

}  // namespace

HRESULT RegisterModule(const std::wstring& module, Classes classes) {
  const RegistrationLock lock;
  const LSTATUS machine = WriteWhole(MachineHive(), classes, module);
  // What the user has wins over what the machine has: another file or class named there would be taken.
  const bool users =
      !RegisteredFile(UserHive(), classes).empty() || HasForeignNames(UserHive(), classes);
  if (machine == ERROR_SUCCESS && !users) return S_OK;
  return HRESULT_FROM_WIN32(static_cast<DWORD>(WriteWhole(UserHive(), classes, module)));
}

HRESULT UnregisterModule(const std::wstring& module, Classes classes) {
  const RegistrationLock lock;
  const bool by_user = LeadsTo(UserHive(), classes, module);
  const bool by_machine = LeadsTo(MachineHive(), classes, module);
  const LSTATUS user = RemoveOwn(UserHive(), classes, module);
  LSTATUS machine = RemoveOwn(MachineHive(), classes, module);
  // A user without rights has taken his own back; what the machine has is the administrator's to remove.
  if (by_user && (!by_machine || machine == ERROR_ACCESS_DENIED)) machine = ERROR_SUCCESS;
  return HRESULT_FROM_WIN32(static_cast<DWORD>(user != ERROR_SUCCESS ? user : machine));
}

bool IsRegistered(const std::wstring& module) {
  const bool by_user = !RegisteredFile(UserHive(), PublicClasses()).empty();
  const Hive hive = by_user ? UserHive() : MachineHive();
  const auto file = LastingFile(hive);
  return !file.empty() && SameFile(file, module) && Complete(hive, file);
}

bool NamesFile(const Hive& hive, const std::wstring& module) {
  return LeadsTo(hive, PublicClasses(), module);
}

void MarkTemporary(const std::wstring& module) {
  MarkIfOwn(MachineHive(), module);
  MarkIfOwn(UserHive(), module);
}

LastingRegistrations LastingRegistrations::Read() {
  LastingRegistrations now;
  now.machine_ = ReadFrom(MachineHive());
  now.user_ = ReadFrom(UserHive());
  return now;
}

void LastingRegistrations::Restore() const {
  RestoreTo(MachineHive(), machine_);
  RestoreTo(UserHive(), user_);
}

LastingRegistrations::Kept LastingRegistrations::ReadFrom(const Hive& hive) {
  return {.file = LastingFile(hive), .names = ForeignNames::Read(hive, PublicClasses())};
}

void LastingRegistrations::RestoreTo(const Hive& hive, const Kept& kept) {
  RestoreFile(hive, kept.file);
  // Another copy that was registered for good meanwhile keeps the names that it took.
  const auto now = LastingFile(hive);
  if (now.empty() || now == kept.file) kept.names.Restore(hive);
}

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
