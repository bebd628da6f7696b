#include "frame/instance.hpp"

#include <utility>

#include "dialogs/host_operator.hpp"
#include "frame/turn.hpp"
#include "state/library.hpp"

namespace kestra {
namespace {

// Every box may run the host's code: its callback, or what its timers do meanwhile.
class VisitedOperator : public Operator {
 public:
  explicit VisitedOperator(Operator& host_operator) : operator_(host_operator) {}

  std::int32_t Message(std::string_view text, std::string_view title, std::int32_t style) override {
    const Turn::Visit visit;
    return operator_.Message(text, title, style);
  }
  bool StatusReport(const Report& report) override {
    const Turn::Visit visit;
    return operator_.StatusReport(report);
  }
  void MemoryFull() override {
    const Turn::Visit visit;
    operator_.MemoryFull();
  }

 private:
  Operator& operator_;
};

// The world with the host's own operator before it.
class HostPlatform : public Platform {
 public:
  explicit HostPlatform(std::unique_ptr<Platform> system)
      : system_(std::move(system)), host_(system_->GetOperator()) {}

  void BeginStartUp() override { system_->BeginStartUp(); }
  void EndStartUp() override { system_->EndStartUp(); }
  void ShutDown() override { system_->ShutDown(); }
  std::string DeviceInstead() override { return system_->DeviceInstead(); }
  std::unique_ptr<SerialPort> CreatePort(const PortSettings& settings) override {
    return system_->CreatePort(settings);
  }
  Clock& GetClock() override { return system_->GetClock(); }
  Operator& GetOperator() override { return operator_; }
  ProfileFile& GetProfile() override { return system_->GetProfile(); }
  LogFile& GetLog() override { return system_->GetLog(); }
  JournalFile& GetJournalFile() override { return system_->GetJournalFile(); }

  HostOperator& GetHost() { return host_; }

 private:
  std::unique_ptr<Platform> system_;
  HostOperator host_;
  VisitedOperator operator_{host_};
};

// Members in this order: the port goes before the world it came from.
struct Process {
  explicit Process(std::unique_ptr<Platform> system)
      : platform(std::move(system)), library(platform) {
    platform.GetHost().Speak(library.texts);
  }

  HostPlatform platform;
  Library library;
};

std::unique_ptr<Process>& Replacement() {
  static std::unique_ptr<Process> replacement;
  return replacement;
}

// Some exports take no turn: two threads may come here first at the same time, and the language lets
// one of them make the process while the other waits.
Process& Current() {
  if (const auto& other = Replacement()) return *other;
  static Process process(MakeSystemPlatform());
  return process;
}

}  // namespace

Library& Instance() {
  return Current().library;
}

void DefinirOperador(const KestraOperador* host_operator) {
  Current().platform.GetHost().Set(host_operator);
}

void ReplaceInstance(std::unique_ptr<Platform> platform) {
  Replacement() = std::make_unique<Process>(std::move(platform));
}

}  // namespace kestra
