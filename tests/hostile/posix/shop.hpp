#pragma once

#include <filesystem>
#include <string>

#include "programs/stories.hpp"

namespace kestra::hostile {

// A folder of its own with a Fiscal.ini, which becomes the current one, and an operator who says yes,
// does not retry, and closes what he is shown.
class Shop {
 public:
  // `device` is what the line is called; `more` are further lines of the settings.
  explicit Shop(const std::string& device, const std::string& more = "");
  Shop(const Shop&) = delete;
  Shop& operator=(const Shop&) = delete;
  ~Shop();

  [[nodiscard]] const std::filesystem::path& Folder() const { return folder_; }

 private:
  std::filesystem::path before_;
  std::filesystem::path folder_;
};

void TakeTheOperatorsPlace();

}  // namespace kestra::hostile
