#include "devices.hpp"

#include <windows.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/shared/text.hpp"
#include "platform/windows/handle.hpp"
#include "platform/windows/text.hpp"

namespace kestra::tool {
namespace {

constexpr auto kEnum = L"SYSTEM\\CurrentControlSet\\Enum";

// A key of the machine's registry; one that is not there is empty.
class Key {
 public:
  explicit Key(const std::wstring& path) {
    if (::RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &key_) != ERROR_SUCCESS) {
      key_ = nullptr;
    }
  }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  ~Key() {
    if (key_ != nullptr) ::RegCloseKey(key_);
  }

  [[nodiscard]] std::vector<std::wstring> Keys() const {
    std::vector<std::wstring> names;
    std::array<wchar_t, 512> name{};
    auto size = static_cast<DWORD>(name.size());
    for (DWORD i = 0;
         key_ != nullptr && ::RegEnumKeyExW(key_, i, name.data(), &size, nullptr, nullptr, nullptr,
                                            nullptr) == ERROR_SUCCESS;
         ++i, size = static_cast<DWORD>(name.size())) {
      names.emplace_back(name.data(), size);
    }
    return names;
  }

  // The texts of all values.
  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    std::array<wchar_t, 512> name{};
    auto size = static_cast<DWORD>(name.size());
    for (DWORD i = 0;
         key_ != nullptr && ::RegEnumValueW(key_, i, name.data(), &size, nullptr, nullptr, nullptr,
                                            nullptr) == ERROR_SUCCESS;
         ++i, size = static_cast<DWORD>(name.size())) {
      texts.push_back(Text(std::wstring(name.data(), size).c_str()));
    }
    return texts;
  }

  [[nodiscard]] std::string Text(const wchar_t* name) const {
    std::array<wchar_t, 512> text{};
    auto bytes = static_cast<DWORD>(sizeof text - sizeof(wchar_t));
    DWORD type = 0;
    const bool read = key_ != nullptr && ::RegQueryValueExW(key_, name, nullptr, &type,
                                                            reinterpret_cast<BYTE*>(text.data()),
                                                            &bytes) == ERROR_SUCCESS;
    return read && type == REG_SZ ? Utf8FromWide(text.data()) : std::string();
  }

  [[nodiscard]] std::optional<int> Number(const wchar_t* name) const {
    DWORD number = 0;
    DWORD bytes = sizeof number;
    DWORD type = 0;
    const bool read = key_ != nullptr &&
                      ::RegQueryValueExW(key_, name, nullptr, &type,
                                         reinterpret_cast<BYTE*>(&number), &bytes) == ERROR_SUCCESS;
    return read && type == REG_DWORD ? std::optional(static_cast<int>(number)) : std::nullopt;
  }

 private:
  HKEY key_ = nullptr;
};

// "COM3" of "com3", "\\.\COM3".
std::string PortName(const std::string& device) {
  constexpr std::string_view kPrefix = "\\\\.\\";
  auto name =
      device.compare(0, kPrefix.size(), kPrefix) == 0 ? device.substr(kPrefix.size()) : device;
  std::transform(name.begin(), name.end(), name.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return name;
}

// Where the registry has a device: its bus, what kind of device it is there, and which one of the kind.
struct Place {
  std::wstring bus;
  std::wstring kind;
  std::wstring instance;

  [[nodiscard]] std::wstring Path() const {
    return std::wstring(kEnum) + L"\\" + bus + L"\\" + kind + L"\\" + instance;
  }
};

// The instance is the adapter's serial number; one that the system made up has an "&" in it.
std::wstring SerialOnUsb(const Place& place) {
  return place.instance.find(L'&') == std::wstring::npos ? place.instance : std::wstring();
}

// "VID_0403+PID_6001+A50285BIA": the number, with the letter of the channel behind it.
std::wstring SerialOnFtdi(const Place& place) {
  const auto mark = place.kind.rfind(L'+');
  if (mark == std::wstring::npos || mark + 2 > place.kind.size()) return {};
  return place.kind.substr(mark + 1, place.kind.size() - mark - 2);
}

// The buses whose adapters have numbers of their own. On the others an instance is counted by the system.
struct BusRow {
  std::wstring_view bus;
  std::wstring (*serial)(const Place& place);
};

constexpr std::array kBuses = {
    BusRow{L"USB", SerialOnUsb},
    BusRow{L"FTDIBUS", SerialOnFtdi},
};

std::string SerialOf(const Place& place) {
  const auto* const row = std::find_if(kBuses.begin(), kBuses.end(),
                                       [&](const BusRow& each) { return each.bus == place.bus; });
  return row == kBuses.end() ? std::string() : Utf8FromWide(row->serial(place));
}

// "@oem9.inf,%name%;USB Serial": where the words are kept, and the words.
std::string PlainName(const std::string& name) {
  return name.starts_with('@') ? name.substr(name.rfind(';') + 1) : name;
}

// Fills in what the registry tells of the device there when it is this port's.
bool Describe(const Place& place, PortInfo& info) {
  const auto path = place.Path();
  const Key parameters(path + L"\\Device Parameters");
  if (PortName(parameters.Text(L"PortName")) != PortName(info.device)) return false;
  const Key device(path);
  const auto friendly = device.Text(L"FriendlyName");
  info.adapter = PlainName(friendly.empty() ? device.Text(L"DeviceDesc") : friendly);
  info.serial = SerialOf(place);
  info.latency = parameters.Number(L"LatencyTimer");
  return true;
}

}  // namespace

PortInfo AboutPort(const std::string& device) {
  PortInfo info{
      .device = PortName(device), .steady = {}, .adapter = {}, .serial = {}, .latency = {}};
  const std::wstring root = std::wstring(kEnum) + L"\\";
  for (const auto& bus : Key(kEnum).Keys()) {
    for (const auto& kind : Key(root + bus).Keys()) {
      for (const auto& instance : Key(root + bus + L"\\" + kind).Keys()) {
        if (Describe({.bus = bus, .kind = kind, .instance = instance}, info)) return info;
      }
    }
  }
  return info;
}

std::vector<PortInfo> ListPorts() {
  std::vector<PortInfo> ports;
  for (const auto& name : Key(L"HARDWARE\\DEVICEMAP\\SERIALCOMM").Texts()) {
    if (!name.empty()) ports.push_back(AboutPort(name));
  }
  std::sort(ports.begin(), ports.end(),
            [](const PortInfo& a, const PortInfo& b) { return a.device < b.device; });
  return ports;
}

// The system tells only by refusing, and not who has it.
std::string PermissionOf(const std::string&) {
  return {};
}

std::vector<std::string> UsersOf(const std::string&) {
  return {};
}

std::optional<Signals> SignalsOf(const std::string& device) {
  const Handle handle(::CreateFileW(WideFromUtf8("\\\\.\\" + PortName(device)).c_str(),
                                    GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0,
                                    nullptr));
  DWORD lines = 0;
  if (!handle || ::GetCommModemStatus(handle.Get(), &lines) == 0) return std::nullopt;
  return Signals{.data_set_ready = (lines & MS_DSR_ON) != 0,
                 .clear_to_send = (lines & MS_CTS_ON) != 0,
                 .carrier = (lines & MS_RLSD_ON) != 0};
}

}  // namespace kestra::tool
