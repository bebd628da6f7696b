// Stories of users who may not register, and of registrations that others made.

#include <kestra/kestra.h>
#include <windows.h>

#include <cstdint>
#include <string>

#include "host.hpp"

namespace {

// Puts another key in a root's place.
class OtherRoot {
 public:
  OtherRoot(HKEY root, const wchar_t* name, DWORD how) : root_(root), name_(name) {
    RegCreateKeyExW(HKEY_CURRENT_USER, name, 0, nullptr, how, KEY_ALL_ACCESS, nullptr, &other_,
                    nullptr);
  }
  OtherRoot(const OtherRoot&) = delete;
  OtherRoot& operator=(const OtherRoot&) = delete;
  ~OtherRoot() {
    Allow();
    RegCloseKey(other_);
    RegDeleteKeyW(HKEY_CURRENT_USER, name_);
  }

  void Forbid() { CHECK(RegOverridePredefKey(root_, other_) == ERROR_SUCCESS); }
  void Allow() { RegOverridePredefKey(root_, nullptr); }

 private:
  HKEY root_;
  const wchar_t* name_;
  HKEY other_ = nullptr;
};

// Stands in for missing rights: nothing can be written below a root that leads to a removed key.
struct UnwritableRoot : OtherRoot {
  explicit UnwritableRoot(HKEY root) : OtherRoot(root, L"Software\\KestraUnwritable", 0) {
    RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\KestraUnwritable");
  }
};

// Stands in for a user who may read but not write: what lies below lasts no longer than the system runs, and
// nothing that lasts can be put there.
struct ReadOnlyRoot : OtherRoot {
  explicit ReadOnlyRoot(HKEY root)
      : OtherRoot(root, L"Software\\KestraReadOnly", REG_OPTION_VOLATILE) {}
};

bool UserHas(const wchar_t* key) {
  HKEY opened = nullptr;
  const std::wstring path = std::wstring(L"Software\\Classes\\") + key;
  const auto error = RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &opened);
  if (error == ERROR_SUCCESS) RegCloseKey(opened);
  return error == ERROR_SUCCESS;
}

constexpr const wchar_t* kInUserHive[] = {
    L"Kestra.InitClass\\CLSID",
    L"Kestra.ExampleClass\\CLSID",
    L"CLSID\\{05FE5BDD-5311-4072-9BC6-CCC50EDCE3A3}\\InprocServer32",
    L"CLSID\\{EB34D3E4-7800-4767-BB09-02831A681970}\\InprocServer32",
    L"Interface\\{EAAF22B2-563C-43FA-AAA4-A12D7778C727}\\TypeLib",
    L"TypeLib\\{09A546AC-7EB8-47CA-9848-E59672A0AB91}\\1.0",
};

// What the registry's keys of the library's own lie in.
constexpr const wchar_t* kServerKey =
    L"Software\\Classes\\CLSID\\{05FE5BDD-5311-4072-9BC6-CCC50EDCE3A3}\\InprocServer32";

// A key with another one inside cannot be removed.
void Obstruct() {
  HKEY server = nullptr;
  CHECK(RegOpenKeyExW(HKEY_LOCAL_MACHINE, kServerKey, 0, KEY_ALL_ACCESS, &server) == ERROR_SUCCESS);
  HKEY inside = nullptr;
  CHECK(RegCreateKeyExW(server, L"Inside", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &inside,
                        nullptr) == ERROR_SUCCESS);
  RegCloseKey(inside);
  RegCloseKey(server);
}

void Clear() {
  HKEY server = nullptr;
  CHECK(RegOpenKeyExW(HKEY_LOCAL_MACHINE, kServerKey, 0, KEY_ALL_ACCESS, &server) == ERROR_SUCCESS);
  CHECK(RegDeleteKeyW(server, L"Inside") == ERROR_SUCCESS);
  RegCloseKey(server);
}

bool obstructs = false;
int messages = 0;

int32_t WINAPI OnMessage(void*, const char*, const char*, int32_t style) {
  if (messages++ == 0 && obstructs) Obstruct();
  return style == 0 ? 1 : 7;
}

STORY(user_without_rights_registers_for_himself) {
  UnwritableRoot machine(HKEY_LOCAL_MACHINE);
  machine.Forbid();
  CHECK(Call("DllRegisterServer") == S_OK);
  for (const auto* const key : kInUserHive) CHECK(UserHas(key));
  machine.Allow();
  CHECK(Call("DllUnregisterServer") == S_OK);
  for (const auto* const key : kInUserHive) CHECK(!UserHas(key));
}

STORY(user_without_rights_installs_the_till_for_himself) {
  constexpr const wchar_t* kTill[] = {
      L"Kestra.Caja\\CLSID", L"CLSID\\{889B85C9-1FB0-407E-ABE4-3C706AA9564C}\\InprocServer32"};
  const auto install = Entry<HRESULT(WINAPI*)(BOOL, const wchar_t*)>("DllInstall");
  UnwritableRoot machine(HKEY_LOCAL_MACHINE);
  machine.Forbid();
  CHECK(install(TRUE, L"caja") == S_OK);
  for (const auto* const key : kTill) CHECK(UserHas(key));
  machine.Allow();
  CHECK(install(FALSE, L"caja") == S_OK);
  for (const auto* const key : kTill) CHECK(!UserHas(key));
}

STORY(user_without_rights_starts) {
  UnwritableRoot machine(HKEY_LOCAL_MACHINE);
  machine.Forbid();
  for (int round = 0; round < 2; ++round) {
    CHECK(Call("EP_Init") == 1);
    for (const auto* const key : kInUserHive) CHECK(!UserHas(key));
    Call("EP_Kill");
  }
  CHECK(CanUnload());
}

// Nobody may write to the registry: start-up fails, and undoes what it began.
STORY(start_without_rights) {
  UnwritableRoot machine(HKEY_LOCAL_MACHINE);
  UnwritableRoot user(HKEY_CURRENT_USER);
  machine.Forbid();
  user.Forbid();
  CHECK(FAILED(Call("DllRegisterServer")));
  CHECK(Call("EP_Init") == 0);
  CHECK(Here() == Apartment::kNone);
  Call("EP_Kill");
  CHECK(Here() == Apartment::kNone);
  machine.Allow();
  user.Allow();
  CHECK(Call("EP_Init") == 1);
  Call("EP_Kill");
  CHECK(Here() == Apartment::kNone);
}

// The settings have a bad key: its message comes while the classes are registered.
STORY(start_that_cannot_take_its_registration_back) {
  const KestraOperador record = {sizeof record, nullptr, OnMessage, nullptr, nullptr};
  Entry<void(WINAPI*)(const KestraOperador*)>("Kestra_DefinirOperador")(&record);
  obstructs = false;
  CHECK(Call("EP_Init") == 1);
  CHECK(messages > 0);
  messages = 0;
  obstructs = true;
  CHECK(Call("EP_Init") == 0);
  Clear();
  Call("EP_Kill");
  obstructs = false;
  CHECK(Call("EP_Init") == 1);
  Call("EP_Kill");
}

// The component system itself knows another copy, which is registered for good.
STORY(another_copy_serves) {
  ReadOnlyRoot machine(HKEY_LOCAL_MACHINE);
  ReadOnlyRoot user(HKEY_CURRENT_USER);
  machine.Forbid();
  user.Forbid();
  CHECK(FAILED(Call("DllRegisterServer")));
  CHECK(GetModuleHandleW(L"Otra.dll") == nullptr);
  CHECK(Call("EP_Init") == 1);
  CHECK(GetModuleHandleW(L"Otra.dll") != nullptr);
  Call("EP_Kill");
  user.Allow();
  machine.Allow();
}

}  // namespace
