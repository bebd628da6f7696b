#pragma once

#include <filesystem>

#include "log/code_page.hpp"
#include "log/stamp.hpp"

namespace kestra::tool {

// What can only be told of a log as a whole.
struct LogFacts {
  CodePage page = CodePage::kAnsi;
  DateOrder order = DateOrder::kDayFirst;
};

// Throws Stop when the file cannot be read. `page`: already known.
LogFacts SurveyLog(const std::filesystem::path& path, std::optional<CodePage> page);

}  // namespace kestra::tool
