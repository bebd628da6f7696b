#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestra::hostile {

constexpr std::size_t kMostParameters = 13;

// One argument: which member counts is the parameter's business.
struct Value {
  const void* pointer = nullptr;
  double number = 0;
  std::int32_t integer = 0;
};
using Values = std::array<Value, kMostParameters>;

// t50 is a text of 50 bytes, z one with a zero behind it, o12 room for a result of 12 bytes, i an
// integer, d an amount, k the operator's record, g the name of a class.
struct Parameter {
  char kind = 0;
  std::size_t size = 0;
  std::string sample{};  // what a sane host passes

  [[nodiscard]] bool IsPointer() const { return kind != 'i' && kind != 'd'; }
  [[nodiscard]] bool IsText() const { return kind == 't' || kind == 'z'; }
};

struct Export {
  std::string_view name;
  std::string_view parameters;
  std::string_view samples;  // one for each parameter but the results, the record and the names
  std::int32_t (*call)(const Values& values);

  [[nodiscard]] std::vector<Parameter> Parameters() const;
  // EP_Init and what depends on it; the others give the same result in every shop.
  [[nodiscard]] bool Operates() const { return name.substr(0, 3) == "EP_"; }
};

const std::vector<Export>& Exports();
const Export& Find(std::string_view name);

}  // namespace kestra::hostile
