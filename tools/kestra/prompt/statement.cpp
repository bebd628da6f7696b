#include "prompt/statement.hpp"

#include <algorithm>
#include <cstddef>

#include "command.hpp"

namespace kestra::tool {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kExpects = "=>";

void SkipBlanks(std::string_view& line) {
  line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
}

// Between quotes a backslash stands before a quote or a backslash that is meant.
std::string TakeQuoted(std::string_view& line) {
  std::string text;
  line.remove_prefix(1);
  while (!line.empty() && line.front() != '"') {
    const bool escaped =
        line.front() == '\\' && line.size() > 1 && (line[1] == '"' || line[1] == '\\');
    if (escaped) line.remove_prefix(1);
    text += line.front();
    line.remove_prefix(1);
  }
  if (line.empty()) throw Stop(Exit::kUsage, "falta una comilla");
  line.remove_prefix(1);
  return text;
}

std::string TakeText(std::string_view& line) {
  if (line.starts_with('"')) return TakeQuoted(line);
  const auto end = std::min(line.find_first_of(kBlanks), line.size());
  std::string text(line.substr(0, end));
  line.remove_prefix(end);
  return text;
}

bool IsNameLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

// precio= at the front.
std::string TakeName(std::string_view& line) {
  const auto end = std::find_if_not(line.begin(), line.end(), IsNameLetter);
  const auto size = static_cast<std::size_t>(end - line.begin());
  const bool named = size > 0 && size < line.size() && line[size] == '=';
  if (!named) return {};
  std::string name(line.substr(0, size));
  line.remove_prefix(size + 1);
  return name;
}

}  // namespace

Statement ReadStatement(std::string_view line) {
  Statement statement;
  SkipBlanks(line);
  if (line.starts_with('#')) return statement;
  if (line.starts_with('!')) {
    statement.has_to_fail = true;
    line.remove_prefix(1);
    SkipBlanks(line);
  }
  statement.name = TakeText(line);
  for (SkipBlanks(line); !line.empty(); SkipBlanks(line)) {
    if (statement.expected) throw Stop(Exit::kUsage, "sobra " + std::string(line));
    if (line.starts_with(kExpects)) {
      line.remove_prefix(kExpects.size());
      SkipBlanks(line);
      statement.expected = TakeText(line);
      continue;
    }
    Word word{.name = TakeName(line), .text = {}};
    word.text = TakeText(line);
    statement.words.push_back(std::move(word));
  }
  if (statement.has_to_fail && statement.name.empty())
    throw Stop(Exit::kUsage, "falta la operación");
  return statement;
}

}  // namespace kestra::tool
