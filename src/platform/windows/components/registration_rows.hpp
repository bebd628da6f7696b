#pragma once

#include <string>
#include <vector>

#include "platform/windows/components/public_classes.hpp"

namespace kestra {

// One value in the registry.
struct RegistrationRow {
  std::wstring key;
  std::wstring name;  // empty: the key's own value
  std::wstring text;
  // The 32-bit and the 64-bit library write the same row; on a 64-bit Windows into the same place.
  bool shared = false;
};

// Keys of the system's that the rows lie in.
inline constexpr const wchar_t* kTopKeys[] = {L"CLSID", L"Interface", L"TypeLib"};

// "CLSID\{...}"
std::wstring ClassKey(const PublicClass& row);

// A name that programs ask for a class by. It may belong to another product, or to a copy of the library
// from before these classes.
struct ClassName {
  std::wstring key;
  std::wstring class_id;           // what it leads to when it is ours
  std::vector<std::wstring> keys;  // those that are written for it, the longest first
};
std::vector<ClassName> ClassNames(Classes classes);

// Everything that makes these classes of the file `module` known.
std::vector<RegistrationRow> RegistrationRows(Classes classes, const std::wstring& module);

// The rows' keys, the longest first: those of this width alone; those that both widths share with the
// keys that they lie in; and all of them.
std::vector<std::wstring> OwnKeys(const std::vector<RegistrationRow>& rows);
std::vector<std::wstring> SharedKeys(const std::vector<RegistrationRow>& rows);
std::vector<std::wstring> AllKeys(const std::vector<RegistrationRow>& rows);

}  // namespace kestra
