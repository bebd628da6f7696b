#include "fakes/fake_platform.hpp"

#include "base/failure.hpp"
#include "platform/shared/ports.hpp"

namespace kestra {

FakePlatform::FakePlatform() {
  clock_.SetDate(21, 11, 2026);
  clock_.SetTimeOfDay(10.5 * 3600);
}

std::unique_ptr<SerialPort> FakePlatform::CreatePort(const PortSettings& settings) {
  trouble_.Reach(Point::kCreatePort);
  const bool named = !settings.device.empty();
  const bool known = named || (settings.CommPort >= 1 && settings.CommPort <= 256);
  const bool accepted = known && (named || LineSpeedOf(settings.Settings).has_value());
  journal_.Add({.kind = accepted ? Happening::kPortCreated : Happening::kPortRefused,
                .text = settings.Settings,
                .detail = settings.device,
                .number = settings.CommPort});
  if (!known) throw Failure(8002, "El puerto de prueba no es v\xe1lido");
  if (!accepted) throw Failure(380, "La velocidad de prueba no es v\xe1lida");
  return std::make_unique<FakePort>(line_, journal_);
}

}  // namespace kestra
