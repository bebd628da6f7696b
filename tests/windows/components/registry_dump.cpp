// Prints every key and value of the classes in the registry, machine's and user's, both widths: what is the
// same before and after was left as it was. With the argument "names" only the keys, and of those only the
// classes' own: a thirtieth of the time.

#include <windows.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

namespace {

constexpr REGSAM kEverything = KEY_READ | KEY_WOW64_64KEY;

// Keys of the classes that hold further classes.
bool HoldsClasses(const std::wstring& name) {
  constexpr const wchar_t* kHolders[] = {L"AppID", L"CLSID", L"Interface", L"TypeLib",
                                         L"WOW6432Node"};
  for (const auto* const holder : kHolders) {
    if (lstrcmpiW(name.c_str(), holder) == 0) return true;
  }
  return false;
}

// Collects everything: a call of the run time for each byte would take longer than the reading.
class Dump {
 public:
  explicit Dump(bool names_only) : names_only_(names_only) {}

  void Key(HKEY parent, const std::wstring& name, const std::string& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, name.c_str(), 0, kEverything, &key) != ERROR_SUCCESS) return;
    text_ += path + "\n";
    if (!names_only_) Values(key, path);
    DWORD length = kLongestName;
    for (DWORD index = 0; RegEnumKeyExW(key, index, name_, &length, nullptr, nullptr, nullptr,
                                        nullptr) == ERROR_SUCCESS;
         ++index, length = kLongestName) {
      const std::wstring below(name_, length);
      const auto below_path = path + "\\" + Plain(below);
      if (!names_only_ || HoldsClasses(below)) {
        Key(key, below, below_path);
      } else {
        text_ += below_path + "\n";
      }
    }
    RegCloseKey(key);
  }
  void Print() const { std::fwrite(text_.data(), 1, text_.size(), stdout); }

 private:
  static constexpr DWORD kLongestName = 16384;
  static constexpr DWORD kLongestData = 65536;

  static void AddHex(std::string& text, unsigned value) {
    constexpr const char* kDigits = "0123456789abcdef";
    text += kDigits[value / 16 % 16];
    text += kDigits[value % 16];
  }
  static std::string Plain(const std::wstring& wide) {
    std::string plain;
    for (const wchar_t unit : wide) {
      if (unit >= L' ' && unit <= L'~') {
        plain += static_cast<char>(unit);
      } else {
        plain += '#';
        AddHex(plain, static_cast<unsigned>(unit) / 256);
        AddHex(plain, static_cast<unsigned>(unit));
      }
    }
    return plain;
  }
  void Values(HKEY key, const std::string& path) {
    for (DWORD index = 0;; ++index) {
      DWORD length = kLongestName;
      DWORD bytes = kLongestData;
      DWORD type = REG_NONE;
      const auto error = RegEnumValueW(key, index, name_, &length, nullptr, &type, data_, &bytes);
      if (error == ERROR_NO_MORE_ITEMS) return;
      text_ += path + " @ " + Plain(std::wstring(name_, length)) + " = ";
      AddHex(text_, type);
      text_ += ':';
      for (DWORD i = 0; error == ERROR_SUCCESS && i < bytes; ++i) AddHex(text_, data_[i]);
      text_ += '\n';
    }
  }

  bool names_only_;
  std::string text_;
  wchar_t name_[kLongestName];
  BYTE data_[kLongestData];
};

}  // namespace

int main(int count, char** arguments) {
  const bool names_only = count == 2 && std::strcmp(arguments[1], "names") == 0;
  const auto dump = std::make_unique<Dump>(names_only);
  dump->Key(HKEY_LOCAL_MACHINE, L"Software\\Classes", "machine");
  dump->Key(HKEY_CURRENT_USER, L"Software\\Classes", "user");
  dump->Print();
  return 0;
}
