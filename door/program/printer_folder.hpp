// The folder of a printer: its Fiscal.ini has to make the library certain of what was done.
#pragma once

#include <filesystem>
#include <vector>

#include "base/problem.hpp"

namespace puerta {

struct PrinterFolder {
  Json facts = nullptr;
  std::vector<FieldError> errors = {};
};

PrinterFolder LookAtFolder(const std::filesystem::path& folder, const std::string& at);

}  // namespace puerta
