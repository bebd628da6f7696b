#include "settings.hpp"

#include <charconv>

#include "base/code_page.hpp"
#include "base/failure.hpp"
#include "command.hpp"
#include "platform/shared/ports.hpp"
#include "platform/shared/tcp_port.hpp"
#include "this_system.hpp"

namespace kestra::tool {
namespace {

std::optional<std::int16_t> NumberOf(const std::string& text) {
  std::int16_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && rest == end ? std::optional(number) : std::nullopt;
}

}  // namespace

Way ReadWay() {
  const auto instead = DeviceInstead();
  return {.device = instead.empty() ? ReadSetting("ImpresoraDispositivo") : instead,
          .number = ReadSetting("ImpresoraPuerto"),
          .speed = ReadSetting("ImpresoraConfig"),
          .family = ReadSetting("TipoComprobante").substr(0, 2),
          .model = ReadSetting("ModeloNombre")};
}

bool LeadsToProgram(const Way& way) {
  return IsTcp(way.device) || LeadsToPipe(way.device);
}

std::string DeviceOf(const Way& way) {
  if (!way.device.empty()) return way.device;
  const auto number = NumberOf(way.number);
  return number ? DeviceOfNumber(*number) : std::string();
}

std::unique_ptr<SerialPort> PortOf(const Way& way) {
  const PortSettings settings{.CommPort = NumberOf(way.number).value_or(0),
                              .Settings = way.speed + ",N,8,1",
                              .device = way.device};
  try {
    return MakePort(settings);
  } catch (const Failure& failure) {
    throw Stop(Exit::kBadSettings, Utf8FromAnsi(failure.Description()));
  }
}

}  // namespace kestra::tool
