#pragma once

#include <asio.hpp>
#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "program/endpoint.hpp"

namespace impresora::prueba {

// Longer than any machine needs; only a fault makes a test wait this long.
inline constexpr auto kLongWait = std::chrono::seconds(20);

// The printer's end of a cable and what has come over it.
struct FarEnd {
  explicit FarEnd(asio::io_context& with) : loop(with) {}

  void Start(Endpoint& endpoint) {
    endpoint.Start({.arrived = [this](std::string_view bytes) { arrived += bytes; },
                    .new_host = [this] { ++hosts; }});
  }

  // Lets the loop work until it is so; false when it never is.
  bool Until(const std::function<bool()>& is_so) const {
    const auto limit = std::chrono::steady_clock::now() + kLongWait;
    while (!is_so()) {
      if (std::chrono::steady_clock::now() > limit) return false;
      loop.restart();
      loop.run_one_for(std::chrono::milliseconds(10));
    }
    return true;
  }
  bool UntilArrived(std::string_view bytes) const {
    return Until([&] { return arrived == bytes; });
  }

  asio::io_context& loop;
  std::string arrived;
  int hosts = 0;
};

}  // namespace impresora::prueba
