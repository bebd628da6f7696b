#include "platform/shared/ports.hpp"

#include "platform/seam/port_fault.hpp"
#include "platform/shared/tcp_port.hpp"

namespace kestra {

namespace {

std::unique_ptr<SerialPort> MakeTcpPort(const std::string& device) {
  std::optional<TcpAddress> address = TcpAddressOf(device);
  if (!address) throw PortFailure(PortFault::kBadAddress, device);
  return std::make_unique<TcpPort>(device, *std::move(address));
}

}  // namespace

std::unique_ptr<SerialPort> MakePort(const PortSettings& settings) {
  if (IsTcp(settings.device)) return MakeTcpPort(settings.device);
  const std::optional<std::int32_t> speed = LineSpeedOf(settings.Settings);
  if (!settings.device.empty()) return MakeDevicePort(settings.device, speed);
  if (settings.CommPort < 1 || settings.CommPort > 256) {
    throw PortFailure(PortFault::kBadNumber, std::to_string(settings.CommPort));
  }
  if (!speed) throw PortFailure(PortFault::kBadSettings, settings.Settings);
  return MakeDevicePort(DeviceOfNumber(settings.CommPort), speed);
}

}  // namespace kestra
