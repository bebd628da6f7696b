#pragma once

#include <string>
#include <vector>

#include "panel/json_text.hpp"

namespace impresora {

// Compares what is expected with what is, key by key; what is not mentioned may be anything. Amounts
// are the same whether "1210.00", "1210" or 1210. Each difference in words, none when all is well.
std::vector<std::string> Differences(const Json& expected, const Json& actual);

// The keys "papel_contiene" and "papel_no_contiene" of an expectation: texts, in any blanks, that
// the paper has or has not.
std::vector<std::string> PaperDifferences(const Json& expected, const std::string& paper);

}  // namespace impresora
