#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "prompt/operations.hpp"
#include "prompt/statement.hpp"

namespace kestra::tool {

struct CallResult {
  std::int32_t result = 0;
  std::vector<std::pair<std::string, std::string>> texts{};  // results by their names
};

// Calls the library, which has been told that texts are UTF-8 with a zero behind them. What was not said is blank.
// Throws Stop for words that do not fit.
CallResult CallOperation(const Operation& operation, const Statement& statement);

// "EP_ImprimirItem descripcion cantidad…": as the help shows it.
std::string UsageOf(const Operation& operation);

}  // namespace kestra::tool
