#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "campaigns/line_faults/byte_fault.hpp"

namespace kestra::line_faults {

using Micros = std::chrono::microseconds;

// Longer than the host waits for an answer that nobody announces, and a pause that it does not mind.
inline constexpr Micros kPastTheDeadline = std::chrono::seconds(6);
inline constexpr Micros kPause = std::chrono::milliseconds(300);

// One direction of a line: bytes come out in the order in which they went in, but for its faults.
class FaultyWire {
 public:
  // Takes the faults of its own direction.
  FaultyWire(Direction direction, std::span<const ByteFault> faults);

  void Push(std::string_view bytes, Micros now);

  // What has come out by `now`.
  std::string Take(Micros now);
  [[nodiscard]] std::optional<Micros> NextDue() const;

  // How many bytes have gone in.
  [[nodiscard]] std::size_t Carried() const { return carried_; }

 private:
  struct Due {
    Micros when;
    char byte;
  };

  void Carry(char byte);
  void Suffer(const ByteFault& fault, std::string& becomes);

  std::vector<ByteFault> faults_;
  std::deque<Due> due_;
  Micros last_{};
  std::size_t carried_ = 0;
};

}  // namespace kestra::line_faults
