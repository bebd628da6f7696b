#include "panel/expectation.hpp"

#include <charconv>
#include <cmath>
#include <optional>

namespace impresora {
namespace {

constexpr const char* kContains = "papel_contiene";
constexpr const char* kContainsNot = "papel_no_contiene";

std::optional<double> AsNumber(const Json& value) {
  if (value.is_number()) return value.get<double>();
  if (!value.is_string()) return std::nullopt;
  const auto& text = value.get_ref<const std::string&>();
  double number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

// Hundredths are exact in a double far beyond what any printer sums up.
bool Same(const Json& expected, const Json& actual) {
  if (expected == actual) return true;
  const auto a = AsNumber(expected);
  const auto b = AsNumber(actual);
  return a && b && std::llround(*a * 100) == std::llround(*b * 100) && std::abs(*a - *b) < 0.001;
}

void Compare(const Json& expected, const Json& actual, const std::string& path,
             std::vector<std::string>& found);

std::string Joined(const std::string& path, const std::string& key) {
  return path.empty() ? key : path + "." + key;
}

void CompareKeys(const Json& expected, const Json& actual, const std::string& path,
                 std::vector<std::string>& found) {
  for (const auto& [key, value] : expected.items()) {
    const auto there = actual.find(key);
    if (there == actual.end()) {
      found.push_back(Joined(path, key) + ": no existe");
    } else {
      Compare(value, *there, Joined(path, key), found);
    }
  }
}

void CompareItems(const Json& expected, const Json& actual, const std::string& path,
                  std::vector<std::string>& found) {
  if (expected.size() != actual.size()) {
    found.push_back(path + ": se esperaban " + std::to_string(expected.size()) +
                    " elementos y hay " + std::to_string(actual.size()));
    return;
  }
  for (std::size_t i = 0; i < expected.size(); ++i) {
    Compare(expected[i], actual[i], path + "[" + std::to_string(i) + "]", found);
  }
}

void Compare(const Json& expected, const Json& actual, const std::string& path,
             std::vector<std::string>& found) {
  if (expected.is_object() && actual.is_object()) {
    CompareKeys(expected, actual, path, found);
  } else if (expected.is_array() && actual.is_array()) {
    CompareItems(expected, actual, path, found);
  } else if (!Same(expected, actual)) {
    found.push_back(path + ": se esperaba " + OneLine(expected) + " y es " + OneLine(actual));
  }
}

std::string OneBlank(const std::string& text) {
  std::string single;
  for (const char c : text) {
    const bool blank = c == ' ' || c == '\n' || c == '\t';
    if (!blank) single += c;
    if (blank && !single.empty() && single.back() != ' ') single += ' ';
  }
  return single;
}

void LookFor(const Json& expected, const char* key, bool wanted, const std::string& paper,
             std::vector<std::string>& found) {
  const auto there = expected.find(key);
  if (there == expected.end()) return;
  const Json texts = there->is_array() ? *there : Json::array({*there});
  for (const Json& text : texts) {
    if (!text.is_string()) {
      found.push_back(std::string(key) + ": " + OneLine(text) + " no es un texto");
    } else if ((paper.find(OneBlank(text.get<std::string>())) != std::string::npos) != wanted) {
      found.push_back("el papel " + std::string(wanted ? "no dice " : "dice ") + OneLine(text));
    }
  }
}

}  // namespace

std::vector<std::string> Differences(const Json& expected, const Json& actual) {
  std::vector<std::string> found;
  Json about_state = expected;
  about_state.erase(kContains);
  about_state.erase(kContainsNot);
  CompareKeys(about_state, actual, "", found);
  return found;
}

std::vector<std::string> PaperDifferences(const Json& expected, const std::string& paper) {
  std::vector<std::string> found;
  const std::string single = OneBlank(paper);
  LookFor(expected, kContains, true, single, found);
  LookFor(expected, kContainsNot, false, single, found);
  return found;
}

}  // namespace impresora
