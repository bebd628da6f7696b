#include "http/message.hpp"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace puerta {
namespace {

std::string Decoded(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    int byte = 0;
    const auto* first = text.data() + i + 1;
    const bool coded = text[i] == '%' && i + 2 < text.size() &&
                       std::from_chars(first, first + 2, byte, 16).ptr == first + 2;
    if (coded) i += 2;
    plain += coded ? static_cast<char>(byte) : (text[i] == '+' ? ' ' : text[i]);
  }
  return plain;
}

}  // namespace

std::string HttpRequest::Field(const std::string& name) const {
  const auto found = fields.find(name);
  return found == fields.end() ? "" : found->second;
}

std::string HttpRequest::Query(std::string_view name) const {
  for (std::string_view rest = query; !rest.empty();) {
    const auto pair = rest.substr(0, rest.find('&'));
    rest.remove_prefix(std::min(pair.size() + 1, rest.size()));
    const auto sign = std::min(pair.find('='), pair.size());
    if (Decoded(pair.substr(0, sign)) == name) {
      return Decoded(pair.substr(std::min(sign + 1, pair.size())));
    }
  }
  return "";
}

Answer JsonAnswer(int status, const Json& body) {
  return {.status = status, .body = LineOf(body) + "\n"};
}

Answer ProblemAnswer(const Problem& problem) {
  auto answer = JsonAnswer(problem.status, ToJson(problem));
  answer.type = "application/problem+json";
  return answer;
}

}  // namespace puerta
