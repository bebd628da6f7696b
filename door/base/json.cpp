#include "base/json.hpp"

#include <cstddef>

namespace puerta {
namespace {

// Deeper than anything that a till has to say, and far from what a stack can bear.
constexpr int kDeepest = 32;

bool IsTooDeep(std::string_view text) {
  int depth = 0;
  bool in_text = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (in_text) {
      if (text[i] == '\\')
        ++i;
      else if (text[i] == '"')
        in_text = false;
      continue;
    }
    if (text[i] == '"') in_text = true;
    if (text[i] == '[' || text[i] == '{') ++depth;
    if (text[i] == ']' || text[i] == '}') --depth;
    if (depth > kDeepest) return true;
  }
  return false;
}

}  // namespace

std::optional<Json> ParseJson(std::string_view text) {
  if (IsTooDeep(text)) return std::nullopt;
  auto value = Json::parse(text, nullptr, false);
  if (value.is_discarded()) return std::nullopt;
  return value;
}

}  // namespace puerta
