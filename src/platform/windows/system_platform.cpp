#include <windows.h>

#include <array>
#include <string>

#include "platform/seam/platform.hpp"
#include "platform/shared/ports.hpp"
#include "platform/windows/clock.hpp"
#include "platform/windows/components/start_up.hpp"
#include "platform/windows/dialogs/window_operator.hpp"
#include "platform/windows/files.hpp"
#include "platform/windows/journal_file.hpp"
#include "platform/windows/text.hpp"

namespace kestra {
namespace {

// No longer than any name of a device; a longer one is as if it were not there.
std::string Variable(const char* name) {
  std::array<wchar_t, kLongestProfileValue + 1> value{};
  const DWORD length = ::GetEnvironmentVariableW(WideFromAnsi(name).c_str(), value.data(),
                                                 static_cast<DWORD>(value.size()));
  return AnsiFromWide({value.data(), length < value.size() ? length : 0});
}

class WindowsPlatform : public Platform {
 public:
  std::string DeviceInstead() override { return Variable(kDeviceVariable); }
  void BeginStartUp() override { components_.Begin(); }
  void EndStartUp() override { components_.End(); }
  void ShutDown() override { components_.ShutDown(); }
  std::unique_ptr<SerialPort> CreatePort(const PortSettings& settings) override {
    return MakePort(settings);
  }
  Clock& GetClock() override { return clock_; }
  Operator& GetOperator() override { return operator_; }
  ProfileFile& GetProfile() override { return profile_; }
  LogFile& GetLog() override { return log_; }
  JournalFile& GetJournalFile() override { return journal_; }

 private:
  ComponentStartUp components_;
  WindowsClock clock_;
  WindowOperator operator_;
  WindowsProfile profile_;
  WindowsLog log_;
  WindowsJournalFile journal_;
};

}  // namespace

std::unique_ptr<Platform> MakeSystemPlatform() {
  return std::make_unique<WindowsPlatform>();
}

}  // namespace kestra
