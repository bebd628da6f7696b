#include "exports/exports.hpp"

#include <algorithm>
#include <stdexcept>

namespace kestra::exports {
namespace {

bool TakesWords(const Parameter& parameter) {
  return parameter.IsText() || !parameter.IsPointer();
}

// Takes the front of the text, up to the bar.
std::string Next(std::string_view& written) {
  const std::string words(written.substr(0, written.find('|')));
  written.remove_prefix(std::min(words.size() + 1, written.size()));
  return words;
}

}  // namespace

bool Export::Has(Kind kind) const {
  const auto parameters = Parameters();
  return std::any_of(parameters.begin(), parameters.end(),
                     [&](const Parameter& parameter) { return parameter.kind == kind; });
}

const Export& Find(std::string_view name) {
  for (const Export& row : Exports()) {
    if (row.name == name) return row;
  }
  throw std::invalid_argument("no such call " + std::string(name));
}

std::vector<Argument> Arguments(const Export& row, std::string_view written) {
  std::vector<Argument> arguments;
  for (const Parameter& parameter : row.Parameters()) {
    Argument argument{parameter, TakesWords(parameter) ? Next(written) : ""};
    if (parameter.kind == Kind::kText) argument.words.resize(parameter.size, ' ');
    if (parameter.kind == Kind::kTerminated) argument.words.push_back('\0');
    arguments.push_back(std::move(argument));
  }
  return arguments;
}

}  // namespace kestra::exports
