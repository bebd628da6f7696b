#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace kestra {

// Where classes are registered: for the whole machine or for this user. The 32-bit and the 64-bit classes
// of one hive are views of it.
struct Hive {
  HKEY root;
  REGSAM view = 0;
};

inline Hive MachineHive() {
  return {HKEY_LOCAL_MACHINE};
}
inline Hive UserHive() {
  return {HKEY_CURRENT_USER};
}

// The same hive as programs of the other width see it; on a 32-bit Windows the same view again.
inline Hive OtherWidth(const Hive& hive) {
  return {hive.root, sizeof(void*) == 8 ? REGSAM{KEY_WOW64_32KEY} : REGSAM{KEY_WOW64_64KEY}};
}

// Keys are named from the hive's classes on, for example "Kestra.InitClass\CLSID". An empty value name is
// the key's own value. The results are the system's error numbers.
LSTATUS WriteText(const Hive& hive, const std::wstring& key, const std::wstring& name,
                  const std::wstring& text);

// Empty when there is none.
std::wstring ReadText(const Hive& hive, const std::wstring& key, const std::wstring& name);

bool HasKey(const Hive& hive, const std::wstring& key);
bool HasValue(const Hive& hive, const std::wstring& key, const std::wstring& name);
void RemoveValue(const Hive& hive, const std::wstring& key, const std::wstring& name);

// A key's values whatever they are, so that they can be put back.
struct RegistryValue {
  std::wstring name;
  DWORD type = REG_NONE;
  std::vector<BYTE> bytes;
};
std::vector<RegistryValue> ReadValues(const Hive& hive, const std::wstring& key);

// Makes the key hold these; its other values stay, but its own one goes where it is none of these.
void PutBackValues(const Hive& hive, const std::wstring& key,
                   const std::vector<RegistryValue>& values);

// Removes a key that has no keys of its own left. One that is not there counts as removed.
LSTATUS RemoveKey(const Hive& hive, const std::wstring& key);

// Removes a key only when it holds nothing at all.
void RemoveEmptyKey(const Hive& hive, const std::wstring& key);

}  // namespace kestra
