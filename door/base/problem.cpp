#include "base/problem.hpp"

namespace puerta {
namespace {

// Names that stay the same; the reference explains each.
constexpr std::string_view kTypes = "/problemas/";

}  // namespace

Json ToJson(const std::vector<FieldError>& errors) {
  Json list = Json::array();
  for (const auto& error : errors) {
    list.push_back({{"puntero", error.pointer}, {"mensaje", error.message}});
  }
  return list;
}

Json ToJson(const Problem& problem) {
  Json told = problem.more;
  told["type"] = problem.kind.empty() ? "about:blank" : std::string(kTypes) + problem.kind;
  told["title"] = problem.title;
  told["status"] = problem.status;
  if (!problem.detail.empty()) told["detail"] = problem.detail;
  if (problem.cause != 0) told["causa"] = problem.cause;
  if (!problem.errors.empty()) told["errores"] = ToJson(problem.errors);
  return told;
}

}  // namespace puerta
