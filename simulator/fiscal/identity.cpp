#include "fiscal/identity.hpp"

#include <algorithm>
#include <array>

#include "text/text.hpp"

namespace impresora {
namespace {

constexpr std::array<IdentityKind, 7> kKinds{{
    {.name = "CUIT", .least = 11, .most = 11, .is_cuit = true},
    {.name = "CUIL", .least = 11, .most = 11, .is_cuit = true},
    {.name = "DNI", .least = 6, .most = 8},
    {.name = "LE", .least = 5, .most = 8},
    {.name = "LC", .least = 5, .most = 8},
    {.name = "CI", .least = 4, .most = 9},
    {.name = "PASAPO", .least = 4, .most = 11, .letters = true},
}};

std::string_view WithoutZeros(std::string_view number) {
  number = Trim(number);
  return number.substr(std::min(number.find_first_not_of('0'), number.size()));
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

}  // namespace

const IdentityKind* FindIdentityKind(std::string_view name) {
  for (const IdentityKind& kind : kKinds) {
    if (kind.name == Trim(name)) return &kind;
  }
  return nullptr;
}

bool HasShapeOf(const IdentityKind& kind, std::string_view number) {
  const std::string_view shown = WithoutZeros(number);
  const auto fits = [&kind](char c) { return IsDigit(c) || (kind.letters && IsLetter(c)); };
  return shown.size() >= kind.least && shown.size() <= kind.most &&
         std::all_of(shown.begin(), shown.end(), fits);
}

bool IsNoNumber(std::string_view number) {
  return WithoutZeros(number).empty();
}

}  // namespace impresora
