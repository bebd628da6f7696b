#pragma once

#include <cstdint>
#include <exception>
#include <string_view>

#include "base/failure.hpp"
#include "frame/instance.hpp"
#include "frame/startup.hpp"
#include "frame/turn.hpp"
#include "platform/seam/host.hpp"
#include "state/library.hpp"
#include "state/log.hpp"
#include "state/report.hpp"

namespace kestra {

// What tells a host, where 0 and 1 are answers, that another call is under way.
constexpr std::int32_t kRefused = -1;

// Runs what may be called at any time; a failure of it becomes `failure`.
template <typename Body>
std::int32_t WithoutFailing(std::int32_t failure, Body body) noexcept {
  try {
    return body();
  } catch (...) {
    return failure;  // the host must survive anything
  }
}

// Runs what needs the library for itself; without its turn it is `failure`.
template <typename Body>
std::int32_t InTurn(std::int32_t failure, Body body) noexcept {
  const Turn turn;
  if (!turn) return failure;
  const FloatingPoint ours;
  return WithoutFailing(failure, [&] {
    auto& library = Instance();
    if (turn.Inherited()) ReleaseAbandoned(library);
    return body(library);
  });
}

// Runs the body of an operation. Whatever goes wrong in it ends here: in the log and as `failure`.
template <typename Operation>
std::int32_t Export(std::string_view name, std::int32_t failure, std::int32_t turned_away,
                    Operation operation) noexcept {
  return InTurn(turned_away, [&](Library& library) {
    BeginCall(library, name);
    try {
      return operation(library);
    } catch (const std::exception& error) {
      NoteFailure(library, ToFailure(error));
      LogFailure(library, ToFailure(error), name);
      return failure;
    }
  });
}

template <typename Operation>
std::int32_t Export(std::string_view name, std::int32_t failure, Operation operation) noexcept {
  return Export(name, failure, failure, operation);
}

}  // namespace kestra
