#include <cstdlib>
#include <string>

#include "platform/posix/clock.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/journal_file.hpp"
#include "platform/posix/terminal_operator.hpp"
#include "platform/seam/host.hpp"
#include "platform/seam/platform.hpp"
#include "platform/shared/ports.hpp"

namespace kestra {

namespace {

// "Not implemented", in the words of the component system that is not here.
constexpr auto kNotImplemented = static_cast<std::int32_t>(0x80004001u);

}  // namespace

std::int32_t RegisterComponents() {
  return kNotImplemented;
}

std::int32_t UnregisterComponents() {
  return kNotImplemented;
}

std::int32_t InstallComponents(bool /*install*/, const void* /*part*/) {
  return kNotImplemented;
}

std::int32_t ComponentFactory(const void* /*class_id*/, const void* /*interface_id*/,
                              void** object) {
  const void* const none = nullptr;
  if (object != nullptr) WriteHostMemory(object, &none, sizeof none);
  return kNotImplemented;
}

bool ComponentsInUse() {
  return false;
}

namespace {

class PosixPlatform : public Platform {
 public:
  std::string DeviceInstead() override {
    const char* const device = std::getenv(kDeviceVariable);
    return device == nullptr ? std::string() : device;
  }
  std::unique_ptr<SerialPort> CreatePort(const PortSettings& settings) override {
    return MakePort(settings);
  }
  Clock& GetClock() override { return clock_; }
  Operator& GetOperator() override { return operator_; }
  ProfileFile& GetProfile() override { return profile_; }
  LogFile& GetLog() override { return log_; }
  JournalFile& GetJournalFile() override { return journal_; }

 private:
  PosixClock clock_;
  TerminalOperator operator_;
  PosixProfile profile_;
  PosixLog log_;
  PosixJournalFile journal_;
};

}  // namespace

std::unique_ptr<Platform> MakeSystemPlatform() {
  return std::make_unique<PosixPlatform>();
}

}  // namespace kestra
