#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>

#include "pages/pages.hpp"

namespace puerta {
namespace {

struct Kind {
  std::string_view ending;
  std::string_view type;
};

constexpr std::array<Kind, 5> kKinds{{
    {.ending = ".html", .type = "text/html; charset=utf-8"},
    {.ending = ".js", .type = "text/javascript; charset=utf-8"},
    {.ending = ".css", .type = "text/css; charset=utf-8"},
    {.ending = ".json", .type = "application/json"},
    {.ending = ".svg", .type = "image/svg+xml"},
}};

bool IsNameLetter(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9') || letter == '-' ||
         letter == '_' || letter == '.';
}

}  // namespace

std::optional<TillFile> ReadTillFile(const std::filesystem::path& folder, std::string_view name) {
  const std::string_view wanted = name.empty() ? "index.html" : name;
  if (wanted.front() == '.' || !std::all_of(wanted.begin(), wanted.end(), IsNameLetter))
    return std::nullopt;
  const auto* const kind = std::find_if(kKinds.begin(), kKinds.end(), [wanted](const Kind& row) {
    return wanted.ends_with(row.ending);
  });
  if (kind == kKinds.end()) return std::nullopt;
  std::ifstream file(folder / wanted, std::ios::binary);
  if (!file) return std::nullopt;
  return TillFile{.type = std::string(kind->type),
                  .body = {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()}};
}

}  // namespace puerta
