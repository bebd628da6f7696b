#pragma once

#include <chrono>

#include "platform/seam/serial_port.hpp"

namespace kestra {

// Processor time of this thread so far, in milliseconds.
double ProcessorTime();

// Looks at a port for 300 ms, as an exchange does.
struct Watch {
  explicit Watch(SerialPort& port) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
    const double before = ProcessorTime();
    for (; std::chrono::steady_clock::now() < end; ++looks) port.InBufferCount();
    cost = ProcessorTime() - before;
  }

  int looks = 0;
  double cost = 0;  // processor time, milliseconds
};

}  // namespace kestra
