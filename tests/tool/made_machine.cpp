#include "made_machine.hpp"

#include <memory>
#include <string_view>
#include <utility>

#include "probe.hpp"
#include "settings.hpp"
#include "this_system.hpp"

namespace kestra::tool {
namespace {

// Only who opens it matters, and what the machine has for him.
class MadePort : public SerialPort {
 public:
  explicit MadePort(std::string device) : device_(std::move(device)) {}

  [[nodiscard]] bool PortOpen() const override { return false; }
  void PortOpen(bool) override {
    if (const auto fault = Line().fault) throw PortFailure(*fault, device_);
  }
  void Output(std::string_view) override {}
  std::size_t InBufferCount() override { return Line().answers ? 1 : 0; }
  void DiscardInput() override {}
  std::string Input() override { return {}; }
  [[nodiscard]] std::string_view Waiting() const override { return {}; }

 private:
  [[nodiscard]] MadeLine Line() const {
    const auto& lines = TheMachine().lines;
    const auto found = lines.find(device_);
    return found == lines.end() ? MadeLine() : found->second;
  }

  std::string device_;
};

}  // namespace

MadeMachine& TheMachine() {
  static MadeMachine machine;
  return machine;
}

// ---- The probe: no time passes ----

Probe::Probe(std::unique_ptr<SerialPort> port) : port_(std::move(port)), sequence_(0) {}

Reply Probe::Ask(std::string_view, Wait) {
  port_->PortOpen(true);
  Reply reply;
  reply.answered = port_->InBufferCount() > 0;
  return reply;
}

// ---- The settings ----

bool LeadsToProgram(const Way&) {
  return false;
}

std::string DeviceOf(const Way& way) {
  return way.device;
}

std::unique_ptr<SerialPort> PortOf(const Way& way) {
  return std::make_unique<MadePort>(way.device);
}

// ---- What the system knows of its ports ----

PortInfo AboutPort(const std::string& device) {
  for (const auto& port : TheMachine().ports) {
    if (port.device == device) return port;
  }
  return {.device = device, .steady = {}, .adapter = {}, .serial = {}, .latency = {}};
}

std::vector<PortInfo> ListPorts() {
  return TheMachine().ports;
}

std::string PermissionOf(const std::string&) {
  return {};
}

std::vector<std::string> UsersOf(const std::string&) {
  return {};
}

std::optional<Signals> SignalsOf(const std::string&) {
  return TheMachine().signals;
}

// ---- Its files ----

std::string ReadSetting(std::string_view) {
  return {};
}

std::string DeviceInstead() {
  return {};
}

std::optional<std::string> ReadFile(const std::string&) {
  return std::nullopt;
}

FileKind KindOfFile(const std::string&) {
  return FileKind::kNone;
}

Writing TryWriting(const std::string&) {
  return Writing::kDone;
}

std::optional<std::uint64_t> FreeBytes(const std::string&) {
  return TheMachine().free_bytes;
}

}  // namespace kestra::tool
