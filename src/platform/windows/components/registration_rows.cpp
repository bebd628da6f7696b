#include "platform/windows/components/registration_rows.hpp"

#include <objbase.h>

#include <algorithm>
#include <iterator>

namespace kestra {
namespace {

constexpr const wchar_t* kLibrary = L"Kestra";
constexpr const wchar_t* kVersion = L"1.0";
constexpr const wchar_t* kWidth = sizeof(void*) == 8 ? L"win64" : L"win32";
// The system's marshaller for interfaces that a type library describes.
constexpr const wchar_t* kAutomationProxy = L"{00020424-0000-0000-C000-000000000046}";

using Rows = std::vector<RegistrationRow>;

std::wstring GuidText(const GUID& id) {
  wchar_t text[40];
  StringFromGUID2(id, text, static_cast<int>(std::size(text)));
  return text;
}

std::wstring LastingName(const PublicClass& row) {
  return std::wstring(kLibrary) + L"." + row.name;
}

std::wstring VersionedName(const PublicClass& row) {
  return LastingName(row) + L".1";
}

void AddClass(Rows& rows, const PublicClass& row, const std::wstring& module) {
  const auto key = ClassKey(row);
  const auto lasting = LastingName(row);
  const auto versioned = VersionedName(row);
  const Rows added{
      {.key = key, .name = {}, .text = lasting},
      {.key = key + L"\\InprocServer32", .name = {}, .text = module},
      {.key = key + L"\\InprocServer32", .name = L"ThreadingModel", .text = L"Apartment"},
      {.key = key + L"\\ProgID", .name = {}, .text = versioned},
      {.key = key + L"\\VersionIndependentProgID", .name = {}, .text = lasting},
      {.key = key + L"\\Version", .name = {}, .text = kVersion},
      {.key = key + L"\\Programmable", .name = {}, .text = {}},
      {.key = lasting, .name = {}, .text = lasting, .shared = true},
      {.key = lasting + L"\\CLSID", .name = {}, .text = GuidText(*row.id), .shared = true},
      {.key = lasting + L"\\CurVer", .name = {}, .text = versioned, .shared = true},
      {.key = versioned, .name = {}, .text = lasting, .shared = true},
      {.key = versioned + L"\\CLSID", .name = {}, .text = GuidText(*row.id), .shared = true},
  };
  rows.insert(rows.end(), added.begin(), added.end());
}

void AddInterface(Rows& rows, const PublicClass& row) {
  const auto key = L"Interface\\" + GuidText(*row.interface_id);
  const Rows added{
      {.key = ClassKey(row) + L"\\TypeLib", .name = {}, .text = GuidText(TypeLibraryId())},
      {.key = key, .name = {}, .text = row.interface_name},
      {.key = key + L"\\ProxyStubClsid32", .name = {}, .text = kAutomationProxy},
      {.key = key + L"\\TypeLib", .name = {}, .text = GuidText(TypeLibraryId())},
      {.key = key + L"\\TypeLib", .name = L"Version", .text = kVersion},
  };
  rows.insert(rows.end(), added.begin(), added.end());
}

void AddTypeLibrary(Rows& rows, const std::wstring& module) {
  const auto key = L"TypeLib\\" + GuidText(TypeLibraryId()) + L"\\" + kVersion;
  rows.push_back({.key = key, .name = {}, .text = kLibrary, .shared = true});
  rows.push_back({.key = key + L"\\FLAGS", .name = {}, .text = L"0", .shared = true});
  rows.push_back({.key = key + L"\\0\\" + kWidth, .name = {}, .text = module});
}

std::vector<std::wstring> LongestFirst(std::vector<std::wstring> keys) {
  std::sort(keys.begin(), keys.end(), [](const std::wstring& left, const std::wstring& right) {
    return left.size() != right.size() ? left.size() > right.size() : left < right;
  });
  keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
  return keys;
}

// `key` and the keys that it lies in, down to but without the system's own.
void AddWithParents(std::vector<std::wstring>& keys, std::wstring key) {
  const auto is_top = [&key](const wchar_t* top) { return key == top; };
  while (std::none_of(std::begin(kTopKeys), std::end(kTopKeys), is_top)) {
    keys.push_back(key);
    const auto cut = key.rfind(L'\\');
    if (cut == std::wstring::npos) return;
    key.resize(cut);
  }
}

template <typename Wanted>
std::vector<std::wstring> KeysWithParents(const Rows& rows, Wanted wanted) {
  std::vector<std::wstring> keys;
  for (const auto& row : rows) {
    if (wanted(row)) AddWithParents(keys, row.key);
  }
  return LongestFirst(std::move(keys));
}

}  // namespace

std::wstring ClassKey(const PublicClass& row) {
  return L"CLSID\\" + GuidText(*row.id);
}

std::vector<ClassName> ClassNames(Classes classes) {
  std::vector<ClassName> names;
  for (const auto& row : classes) {
    for (const auto& key : {LastingName(row), VersionedName(row)}) {
      names.push_back({.key = key,
                       .class_id = GuidText(*row.id),
                       .keys = {key + L"\\CurVer", key + L"\\CLSID", key}});
    }
  }
  return names;
}

std::vector<RegistrationRow> RegistrationRows(Classes classes, const std::wstring& module) {
  Rows rows;
  bool described = false;
  for (const auto& row : classes) {
    AddClass(rows, row, module);
    if (row.interface_id == nullptr) continue;
    AddInterface(rows, row);
    described = true;
  }
  if (described) AddTypeLibrary(rows, module);
  return rows;
}

std::vector<std::wstring> OwnKeys(const Rows& rows) {
  std::vector<std::wstring> keys;
  for (const auto& row : rows) {
    if (!row.shared) keys.push_back(row.key);
  }
  return LongestFirst(std::move(keys));
}

std::vector<std::wstring> SharedKeys(const Rows& rows) {
  return KeysWithParents(rows, [](const RegistrationRow& row) { return row.shared; });
}

std::vector<std::wstring> AllKeys(const Rows& rows) {
  return KeysWithParents(rows, [](const RegistrationRow&) { return true; });
}

}  // namespace kestra
