#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace kestra::bench {

// Of at least one value; of an even count, the upper one in the middle.
inline double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace kestra::bench
