#include "log/mask.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kestra::tool {
namespace {

constexpr std::array<std::string_view, 9> kHidden{"nombre",    "nombre 2",    "documento",
                                                  "domicilio", "domicilio 2", "domicilio 3",
                                                  "remito 1",  "remito 2",    "texto"};

constexpr std::array<std::string_view, 7> kShown{
    "descripción",    "extra 1",           "extra 2",    "extra 3",
    "IVA del emisor", "tipo de documento", "bien de uso"};

// Calls whose arguments are the customer's, but for those at the front.
struct Call {
  std::string_view name;
  std::size_t shown;
};

constexpr std::array kCalls{Call{"EP_AbrirComprobante", 2}, Call{"EP_ImprimirTexto", 0},
                            Call{"EP_SetEncabezado", 0}};

constexpr std::size_t kLongNumber = 7;
constexpr std::size_t kShortestName = 4;
constexpr std::size_t kMostSeen = 10'000;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsInner(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

bool JoinsDigits(char c) {
  return c == '-' || c == '.' || c == ' ' || c == '/';
}

std::string Shape(std::string_view text) {
  std::string shape;
  for (const char c : text) {
    if (IsInner(c)) continue;
    const bool letter = IsLetter(c) || static_cast<unsigned char>(c) >= 0x80;
    shape += IsDigit(c) ? '#' : (letter ? 'x' : c);
  }
  return shape;
}

// Where the digits that begin at `from` end, with single signs between them.
std::size_t EndOfNumber(std::string_view text, std::size_t from) {
  std::size_t end = from;
  while (end < text.size()) {
    const bool digit = IsDigit(text[end]);
    const bool joined = JoinsDigits(text[end]) && end + 1 < text.size() && IsDigit(text[end + 1]);
    if (!digit && !joined) break;
    ++end;
  }
  return end;
}

std::string WithoutLongNumbers(std::string_view text) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    if (!IsDigit(text[at])) {
      result += text[at++];
      continue;
    }
    const auto number = text.substr(at, EndOfNumber(text, at) - at);
    const auto digits =
        static_cast<std::size_t>(std::count_if(number.begin(), number.end(), IsDigit));
    result += digits >= kLongNumber ? Shape(number) : std::string(number);
    at += number.size();
  }
  return result;
}

void ReplaceAll(std::string& text, std::string_view what) {
  const std::string shape = Shape(what);
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + shape.size()))
    text.replace(at, what.size(), shape);
}

// 'FC','A','Libreria','' with its first arguments as they are.
std::string CallShape(std::string_view call, std::size_t shown) {
  const std::size_t name = std::min(call.find('('), call.size());
  std::size_t at = name;
  for (std::size_t count = 0; count < shown && at < call.size(); ++count)
    at = call.find("','", at + 1);
  if (at >= call.size()) at = name;
  return std::string(call.substr(0, at)) + Shape(call.substr(at));
}

}  // namespace

bool IsHidden(std::string_view field) {
  return std::find(kHidden.begin(), kHidden.end(), field) != kHidden.end();
}

bool IsShown(std::string_view field) {
  return std::find(kShown.begin(), kShown.end(), field) != kShown.end();
}

std::string Mask::Field(std::string_view name, std::string_view value, Kind kind) {
  if (!on_ || value.empty()) return std::string(value);
  if (kind == Kind::kUnknown) return Shape(value);
  if (!IsHidden(name)) return kind == Kind::kText ? Text(value) : std::string(value);
  const bool names_somebody = name != "texto" && value.size() >= kShortestName;
  if (names_somebody && seen_.size() < kMostSeen) seen_.emplace(value);
  return Shape(value);
}

std::string Mask::Note(std::string_view text) const {
  if (!on_) return std::string(text);
  for (const Call& call : kCalls) {
    const auto at = text.find(call.name);
    if (at != std::string_view::npos)
      return Text(text.substr(0, at)) + CallShape(text.substr(at), call.shown);
  }
  return Text(text);
}

std::string Mask::Unknown(std::string_view text) const {
  return on_ ? Shape(text) : std::string(text);
}

std::string Mask::Text(std::string_view text) const {
  std::string result(text);
  for (const std::string& name : seen_) ReplaceAll(result, name);
  return WithoutLongNumbers(result);
}

}  // namespace kestra::tool
