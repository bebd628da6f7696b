#pragma once

#include "platform/seam/port_fault.hpp"

namespace kestra {

// What an error number of the system means for a port.
template <typename Number>
struct ErrorRow {
  Number error;
  PortFault fault;
};

template <typename Rows, typename Number>
PortFault FaultIn(const Rows& rows, Number error, PortFault otherwise) {
  for (const auto& row : rows) {
    if (row.error == error) return row.fault;
  }
  return otherwise;
}

}  // namespace kestra
