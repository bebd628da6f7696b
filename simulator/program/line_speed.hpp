#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "program/endpoint.hpp"

namespace impresora {

// What is left of bytes when host and printer set their sides of the line to different speeds.
class LineSpeed {
 public:
  using Tell = std::function<void(const std::string& words)>;

  // Nothing happens to the bytes when `baud` is 0, or when the line cannot say what the host has set.
  LineSpeed(const Endpoint& endpoint, int baud, Tell tell);

  std::string FromHost(std::string_view bytes);
  std::string ToHost(std::string_view bytes);

 private:
  // The host's speed; a person hears of each that is not understood.
  int HostBaud();

  const Endpoint& endpoint_;
  int baud_;
  Tell tell_;
  int told_ = 0;
};

}  // namespace impresora
