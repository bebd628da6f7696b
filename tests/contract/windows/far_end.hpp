#pragma once

#include <winsock2.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace kestra {

// The connection to the program that holds the far ends of the lines; one for all tests. See far_end.py.
class FarEnd {
 public:
  static FarEnd& Get();

  // The serial line's port: "COM20".
  [[nodiscard]] const std::string& Device() const { return device_; }

  std::string Ask(char letter, std::uint32_t count = 0, std::string_view data = {}) const;

 private:
  FarEnd();

  [[nodiscard]] std::string Exactly(std::size_t count) const;

  std::string device_;
  SOCKET socket_ = INVALID_SOCKET;
};

}  // namespace kestra
