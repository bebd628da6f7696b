#pragma once

#include <string>
#include <string_view>

#include "state/library.hpp"

namespace kestra::golden {

// The value of a field of the state record, by its name, as a case shows it: texts in quotes, flags
// as the list of the slots that are set. Throws std::invalid_argument for a name that there is not.
std::string ShowField(const State& state, std::string_view name);

}  // namespace kestra::golden
