#include "http/keys.hpp"

#include <array>

#include "base/sha256.hpp"

namespace puerta {
namespace {

struct Row {
  Right right;
  std::string_view words;
};

constexpr std::array<Row, 3> kRights{{{kRead, "leer"}, {kSell, "vender"}, {kClose, "cerrar"}}};
constexpr std::string_view kBearer = "Bearer ";

}  // namespace

std::string_view WordsOf(Right right) {
  for (const auto& row : kRights) {
    if (row.right == right) return row.words;
  }
  return "ninguno";
}

Right RightOf(std::string_view words) {
  for (const auto& row : kRights) {
    if (row.words == words) return row.right;
  }
  return kNobody;
}

KeyRing::KeyRing(const std::vector<TillSettings>& tills) {
  for (const auto& till : tills) {
    tills_[till.key_hash] = {.name = till.name, .rights = till.rights};
  }
}

const Till* KeyRing::Find(std::string_view authorization) const {
  if (IsOpen()) return &anybody_;
  if (!authorization.starts_with(kBearer)) return nullptr;
  const auto found = tills_.find(Sha256(authorization.substr(kBearer.size())));
  return found == tills_.end() ? nullptr : &found->second;
}

}  // namespace puerta
