#include "fakes/fake_profile.hpp"

#include <algorithm>

namespace kestra {
namespace {

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return lower;
}

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// Blanks around a value go, and then one pair of quotes around what is left.
std::string_view AsRead(std::string_view value) {
  value = Trimmed(value);
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

std::string FakeProfile::Read(std::string_view section, std::string_view key,
                              std::string_view file) {
  trouble_.Reach(Point::kProfile);
  if (Lower(section) != "epson_fiscal" || Lower(file) != ".\\fiscal.ini") return {};
  const auto found = values_.find(Lower(key));
  return found == values_.end() ? std::string() : found->second.substr(0, kLongestProfileValue);
}

void FakeProfile::Set(std::string_view key, std::string_view value) {
  values_[Lower(Trimmed(key))] = AsRead(value);
}

void FakeProfile::Remove(std::string_view key) {
  values_.erase(Lower(Trimmed(key)));
}

}  // namespace kestra
