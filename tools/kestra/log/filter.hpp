#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "log/entry.hpp"
#include "log/stamp.hpp"

namespace kestra::tool {

// Which entries are wanted. All that is set has to hold.
struct Filter {
  bool failures = false;
  std::optional<Day> day{};
  std::string letter{};  // of the document; empty for any
  std::string number{};  // without zeros on the left; empty for any

  [[nodiscard]] bool Wants(const Entry& entry, DateOrder order) const;
};

// "12", "B-12", "b 00000012": the letter and the number of a document. False when it is neither.
bool ReadDocument(std::string_view text, Filter& filter);

}  // namespace kestra::tool
