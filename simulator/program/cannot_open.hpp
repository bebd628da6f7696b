#pragma once

#include <string>
#include <system_error>

namespace impresora {

// What cannot be opened, and why, in the words of the person who asked for it.
class CannotOpen : public std::system_error {
 public:
  CannotOpen(const std::string& name, std::error_code error);
  [[nodiscard]] const char* what() const noexcept override { return words_.c_str(); }

 private:
  std::string words_;
};

}  // namespace impresora
