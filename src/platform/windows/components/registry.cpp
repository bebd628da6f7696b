#include "platform/windows/components/registry.hpp"

#include <algorithm>
#include <utility>

namespace kestra {
namespace {

// An open registry key.
class Key {
 public:
  static Key Open(const Hive& hive, const std::wstring& key, REGSAM access) {
    HKEY handle = nullptr;
    const LSTATUS error =
        RegOpenKeyExW(hive.root, Path(key).c_str(), 0, access | hive.view, &handle);
    return {handle, error};
  }
  static Key Create(const Hive& hive, const std::wstring& key) {
    HKEY handle = nullptr;
    const LSTATUS error =
        RegCreateKeyExW(hive.root, Path(key).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_WRITE | hive.view, nullptr, &handle, nullptr);
    return {handle, error};
  }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  ~Key() {
    if (error_ == ERROR_SUCCESS) RegCloseKey(handle_);
  }

  [[nodiscard]] HKEY Get() const { return handle_; }
  [[nodiscard]] LSTATUS Error() const { return error_; }
  explicit operator bool() const { return error_ == ERROR_SUCCESS; }

 private:
  Key(HKEY handle, LSTATUS error) : handle_(handle), error_(error) {}
  static std::wstring Path(const std::wstring& key) {
    return key.empty() ? L"Software\\Classes" : L"Software\\Classes\\" + key;
  }

  HKEY handle_;
  LSTATUS error_;
};

struct Place {
  std::wstring parent;
  std::wstring leaf;
};

Place PlaceOf(const std::wstring& key) {
  const auto cut = key.rfind(L'\\');
  if (cut == std::wstring::npos) return {.parent = {}, .leaf = key};
  return {.parent = key.substr(0, cut), .leaf = key.substr(cut + 1)};
}

bool Missing(LSTATUS error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

}  // namespace

LSTATUS WriteText(const Hive& hive, const std::wstring& key, const std::wstring& name,
                  const std::wstring& text) {
  const auto opened = Key::Create(hive, key);
  if (!opened) return opened.Error();
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  return RegSetValueExW(opened.Get(), name.c_str(), 0, REG_SZ,
                        reinterpret_cast<const BYTE*>(text.c_str()), bytes);
}

std::wstring ReadText(const Hive& hive, const std::wstring& key, const std::wstring& name) {
  const auto opened = Key::Open(hive, key, KEY_QUERY_VALUE);
  if (!opened) return {};
  DWORD bytes = 0;
  if (RegQueryValueExW(opened.Get(), name.c_str(), nullptr, nullptr, nullptr, &bytes) !=
      ERROR_SUCCESS) {
    return {};
  }
  // One more, since whoever wrote the text may have left its ending zero out.
  std::vector<wchar_t> text(bytes / sizeof(wchar_t) + 1);
  DWORD type = REG_NONE;
  const auto error = RegQueryValueExW(opened.Get(), name.c_str(), nullptr, &type,
                                      reinterpret_cast<BYTE*>(text.data()), &bytes);
  const bool readable = error == ERROR_SUCCESS && (type == REG_SZ || type == REG_EXPAND_SZ);
  return readable ? std::wstring(text.data()) : std::wstring();
}

bool HasKey(const Hive& hive, const std::wstring& key) {
  return static_cast<bool>(Key::Open(hive, key, KEY_QUERY_VALUE));
}

bool HasValue(const Hive& hive, const std::wstring& key, const std::wstring& name) {
  const auto opened = Key::Open(hive, key, KEY_QUERY_VALUE);
  return opened && RegQueryValueExW(opened.Get(), name.c_str(), nullptr, nullptr, nullptr,
                                    nullptr) == ERROR_SUCCESS;
}

void RemoveValue(const Hive& hive, const std::wstring& key, const std::wstring& name) {
  const auto opened = Key::Open(hive, key, KEY_SET_VALUE);
  if (opened) RegDeleteValueW(opened.Get(), name.c_str());
}

std::vector<RegistryValue> ReadValues(const Hive& hive, const std::wstring& key) {
  const auto opened = Key::Open(hive, key, KEY_QUERY_VALUE);
  DWORD longest_name = 0;
  DWORD most_bytes = 0;
  if (!opened ||
      RegQueryInfoKeyW(opened.Get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                       &longest_name, &most_bytes, nullptr, nullptr) != ERROR_SUCCESS) {
    return {};
  }
  std::vector<RegistryValue> values;
  for (DWORD index = 0;; ++index) {
    std::wstring name(longest_name + 1, L'\0');
    auto length = static_cast<DWORD>(name.size());
    RegistryValue value{.name = {}, .type = REG_NONE, .bytes = std::vector<BYTE>(most_bytes)};
    auto bytes = most_bytes;
    if (RegEnumValueW(opened.Get(), index, name.data(), &length, nullptr, &value.type,
                      value.bytes.data(), &bytes) != ERROR_SUCCESS) {
      return values;
    }
    value.name = name.substr(0, length);
    value.bytes.resize(bytes);
    values.push_back(std::move(value));
  }
}

void PutBackValues(const Hive& hive, const std::wstring& key,
                   const std::vector<RegistryValue>& values) {
  const auto opened = Key::Create(hive, key);
  if (!opened) return;
  if (std::none_of(values.begin(), values.end(),
                   [](const auto& one) { return one.name.empty(); })) {
    RegDeleteValueW(opened.Get(), L"");
  }
  for (const auto& value : values) {
    RegSetValueExW(opened.Get(), value.name.c_str(), 0, value.type, value.bytes.data(),
                   static_cast<DWORD>(value.bytes.size()));
  }
}

LSTATUS RemoveKey(const Hive& hive, const std::wstring& key) {
  const auto place = PlaceOf(key);
  // Removing needs no rights on the parent; asking for some would refuse users for keys that are not there.
  const auto parent = Key::Open(hive, place.parent, KEY_QUERY_VALUE);
  const LSTATUS error = parent ? RegDeleteKeyW(parent.Get(), place.leaf.c_str()) : parent.Error();
  return Missing(error) ? ERROR_SUCCESS : error;
}

void RemoveEmptyKey(const Hive& hive, const std::wstring& key) {
  DWORD keys = 0;
  DWORD values = 0;
  LSTATUS error = ERROR_SUCCESS;
  {
    const auto opened = Key::Open(hive, key, KEY_QUERY_VALUE);
    if (!opened) return;
    error = RegQueryInfoKeyW(opened.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                             &values, nullptr, nullptr, nullptr, nullptr);
  }
  if (error == ERROR_SUCCESS && keys == 0 && values == 0) RemoveKey(hive, key);
}

}  // namespace kestra
