#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace impresora {

// What stands before the body of a request.
struct Head {
  std::string method;
  std::string target;
  std::vector<std::pair<std::string, std::string>> fields;  // names in lower case

  std::size_t Count(std::string_view name) const;
  std::string_view Value(std::string_view name) const;  // of the first, or nothing
};

// Reads the bytes through the empty line; nothing when they are no request, however slightly.
std::optional<Head> ParseHead(std::string_view bytes);

}  // namespace impresora
