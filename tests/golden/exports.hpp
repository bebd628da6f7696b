#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestra::golden {

class Onlooker;

// What a call did besides its result: its result buffers as the call left them.
struct CallOutcome {
  std::int32_t result = 0;
  std::vector<std::string> buffers;
};

// Calls an exported function by its name, the way a host would. `arguments` are the words of the
// case: numbers, "texts", null, out. Throws std::invalid_argument when they do not fit the
// function, and std::logic_error when the function wrote behind a buffer's end. The onlooker hears of
// the call alone, not of what is made ready for it.
CallOutcome CallExport(std::string_view name, const std::vector<std::string_view>& arguments,
                       Onlooker* onlooker = nullptr);

}  // namespace kestra::golden
