#include "program/line_speed.hpp"

#include <utility>

#include "wire/speed.hpp"

namespace impresora {

LineSpeed::LineSpeed(const Endpoint& endpoint, int baud, Tell tell)
    : endpoint_(endpoint), baud_(baud), tell_(std::move(tell)) {}

std::string LineSpeed::FromHost(std::string_view bytes) {
  return AsHeard(bytes, HostBaud(), baud_);
}

std::string LineSpeed::ToHost(std::string_view bytes) {
  return AsHeard(bytes, baud_, HostBaud());
}

int LineSpeed::HostBaud() {
  const int host = baud_ == 0 ? 0 : endpoint_.HostBaud();
  if (host == 0) return baud_;
  if (host != std::exchange(told_, host) && !SoundAlike(host, baud_)) {
    tell_("la caja habla a " + std::to_string(host) + " baudios y la impresora a " +
          std::to_string(baud_) + ": no se entienden");
  }
  return host;
}

}  // namespace impresora
