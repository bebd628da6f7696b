#include "frame/instance.hpp"

#include <utility>

#include "dialogs/host_operator.hpp"
#include "frame/library.hpp"

namespace kestra {
namespace {

// The world with the host's own operator before it.
class HostPlatform : public Platform {
 public:
  explicit HostPlatform(std::unique_ptr<Platform> system)
      : system_(std::move(system)), operator_(system_->GetOperator()) {}

  void BeginStartUp() override { system_->BeginStartUp(); }
  void EndStartUp() override { system_->EndStartUp(); }
  void ShutDown() override { system_->ShutDown(); }
  std::unique_ptr<SerialPort> CreatePort(const PortSettings& settings) override {
    return system_->CreatePort(settings);
  }
  Clock& GetClock() override { return system_->GetClock(); }
  HostOperator& GetOperator() override { return operator_; }
  ProfileFile& GetProfile() override { return system_->GetProfile(); }
  LogFile& GetLog() override { return system_->GetLog(); }

 private:
  std::unique_ptr<Platform> system_;
  HostOperator operator_;
};

// Members in this order: the port goes before the world it came from.
struct Proceso {
  explicit Proceso(std::unique_ptr<Platform> system)
      : platform(std::move(system)), biblioteca(platform) {}

  HostPlatform platform;
  Biblioteca biblioteca;
};

std::unique_ptr<Proceso>& Lugar() {
  static std::unique_ptr<Proceso> proceso;
  return proceso;
}

Proceso& Unico() {
  auto& proceso = Lugar();
  if (proceso == nullptr) proceso = std::make_unique<Proceso>(MakeSystemPlatform());
  return *proceso;
}

}  // namespace

Biblioteca& Instancia() {
  return Unico().biblioteca;
}

void DefinirOperador(const KestraOperador* operador) {
  Unico().platform.GetOperator().Set(operador);
}

void ReemplazarInstancia(std::unique_ptr<Platform> platform) {
  Lugar() = std::make_unique<Proceso>(std::move(platform));
}

}  // namespace kestra
