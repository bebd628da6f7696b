#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <utility>

#include "protocol/packet.hpp"

namespace kestra {

// A printer command: its byte, then its fields, each behind a separator.
class Command {
 public:
  explicit Command(char byte) : bytes_(1, byte) {}

  Command& Field(std::string_view field) & {
    bytes_.append(1, kFs).append(field);
    return *this;
  }
  Command&& Field(std::string_view field) && { return std::move(Field(field)); }

  // A number in plain decimal.
  template <std::integral T>
  requires(!std::same_as<T, char>) Command && Field(T number) && {
    return std::move(*this).Field(std::to_string(number));
  }

  [[nodiscard]] const std::string& Bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

}  // namespace kestra
