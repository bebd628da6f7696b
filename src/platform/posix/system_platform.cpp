#include "platform/posix/clock.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/terminal_operator.hpp"
#include "platform/seam/platform.hpp"
#include "platform/shared/ports.hpp"

namespace kestra {
namespace {

class PosixPlatform : public Platform {
 public:
  std::unique_ptr<SerialPort> CreatePort(const PortSettings& settings) override {
    return MakePort(settings);
  }
  Clock& GetClock() override { return clock_; }
  Operator& GetOperator() override { return operator_; }
  ProfileFile& GetProfile() override { return profile_; }
  LogFile& GetLog() override { return log_; }

 private:
  PosixClock clock_;
  TerminalOperator operator_;
  PosixProfile profile_;
  PosixLog log_;
};

}  // namespace

std::unique_ptr<Platform> MakeSystemPlatform() {
  return std::make_unique<PosixPlatform>();
}

}  // namespace kestra
