#pragma once

#include <asio.hpp>
#include <memory>

#include "program/endpoint.hpp"
#include "program/options.hpp"

namespace impresora {

// The cable that the options ask for. Throws std::exception when it cannot be had.
std::unique_ptr<Endpoint> MakeEndpoint(asio::io_context& loop, const Options& options);

// Whether bytes take their time on that cable by themselves.
inline bool HasOwnSpeed(const Options& options) {
  return !options.device.empty();
}

}  // namespace impresora
