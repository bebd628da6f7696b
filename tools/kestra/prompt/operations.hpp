#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace kestra::tool {

enum class Kind : char {
  kText = 't',
  kTerminated = 'z',
  kResult = 'o',
  kLength = 'n',  // of the result before it
  kInteger = 'i',
  kAmount = 'd',
};

struct Argument {
  Kind kind = Kind::kInteger;
  std::size_t size = 0;  // of a text or a result; 0 where the caller chooses
  std::string_view name{};
};

struct Value {
  std::int32_t integer = 0;
  double number = 0;
  char* text = nullptr;
};

inline constexpr std::size_t kMostArguments = 13;
using Values = std::array<Value, kMostArguments>;

// What somebody at the prompt can call, as api/kestra.toml has it.
struct Operation {
  std::string_view name;
  std::string_view title;
  std::string_view arguments;  // "t50 descripcion|d cantidad"
  std::int32_t (*call)(const Values& values);
};

std::span<const Operation> Operations();

// By its name in either case, with or without what stands before the first underscore; null for none.
const Operation* FindOperation(std::string_view name);

std::vector<Argument> ArgumentsOf(const Operation& operation);

// Whether it prints nothing and changes nothing in the printer.
bool OnlyReads(const Operation& operation);

}  // namespace kestra::tool
