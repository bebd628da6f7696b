#pragma once

#include <concepts>
#include <string>
#include <string_view>

#include "protocol/control_bytes.hpp"

namespace kestra {

// A printer command: its byte, then its fields, each behind a separator.
class Comando {
 public:
  explicit Comando(char byte) : bytes_(1, byte) {}

  Comando& Campo(std::string_view field) & {
    bytes_.append(1, kFs).append(field);
    return *this;
  }
  Comando&& Campo(std::string_view field) && { return std::move(Campo(field)); }

  // A number in plain decimal.
  template <std::integral T>
  requires(!std::same_as<T, char>) Comando && Campo(T number) && {
    return std::move(*this).Campo(std::to_string(number));
  }

  [[nodiscard]] const std::string& Bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

}  // namespace kestra
