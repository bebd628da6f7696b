#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "outbox/letter.hpp"
#include "store/sqlite.hpp"

namespace puerta {

// What waits for the broker, read by a thread of its own over its own connection to the door's file.
class LetterBox {
 public:
  explicit LetterBox(const std::string& path);

  std::vector<std::string> Printers();
  std::optional<Letter> Oldest(std::string_view printer, std::int64_t behind);
  void Forget(const std::string& printer, std::int64_t id);  // it has arrived
  std::int64_t Waiting();

 private:
  Database database_;
};

}  // namespace puerta
