// What is to be called in the library, as data.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/decimal.hpp"
#include "sale/sale.hpp"

namespace puerta {

struct Call {
  std::string_view name;  // "EP_ImprimirItem"
  std::vector<std::string> texts = {};
  std::vector<Decimal> amounts = {};
  std::vector<std::int32_t> numbers = {};
  int line = 0;  // of the request, from 1; 0 when it is of none
};

// The last one closes the document.
std::vector<Call> CallsOf(const Sale& sale);

}  // namespace puerta
