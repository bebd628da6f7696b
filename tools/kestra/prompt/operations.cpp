#include "prompt/operations.hpp"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "kestra/kestra.h"
#include "prompt/letters.hpp"

namespace kestra::tool {
namespace {

template <class Type>
Type As(const Value& value) {
  if constexpr (std::is_same_v<Type, std::int32_t>) {
    return value.integer;
  } else if constexpr (std::is_same_v<Type, double>) {
    return value.number;
  } else {
    return value.text;
  }
}

template <class Function>
struct Shape;

template <class... Types>
struct Shape<std::int32_t(KESTRA_CALL*)(Types...)> {
  static_assert(sizeof...(Types) <= kMostArguments);

  template <std::size_t... Places>
  static std::int32_t Call(std::int32_t(KESTRA_CALL* function)(Types...),
                           [[maybe_unused]] const Values& values, std::index_sequence<Places...>) {
    return function(As<Types>(values[Places])...);
  }
  static std::int32_t Call(std::int32_t(KESTRA_CALL* function)(Types...), const Values& values) {
    return Call(function, values, std::index_sequence_for<Types...>());
  }
};

template <auto Function>
std::int32_t Call(const Values& values) {
  return Shape<decltype(Function)>::Call(Function, values);
}

#define ROW(name, title, arguments)          \
  Operation {                                \
#name, title, arguments, Call < &(name)> \
  }
constexpr std::array kOperations{
#include "prompt/operations.inc"
};
#undef ROW

// Those of the library's own that read; what the printer is asked past them prints nothing.
constexpr std::array<std::string_view, 5> kReading{"EP_ObtenerFechaHora", "EP_GetEncabezado",
                                                   "EP_ValoresModelo", "EP_Numeracion",
                                                   "EP_AutodetectarModelo"};
constexpr std::string_view kAsking = "Kestra_";

std::string_view WithoutPrefix(std::string_view name) {
  return name.substr(name.find('_') + 1);
}

}  // namespace

std::span<const Operation> Operations() {
  return kOperations;
}

const Operation* FindOperation(std::string_view name) {
  const Operation* found = nullptr;
  for (const Operation& row : kOperations) {
    if (SameLetters(row.name, name)) return &row;
    if (found == nullptr && SameLetters(WithoutPrefix(row.name), name)) found = &row;
  }
  return found;
}

std::vector<Argument> ArgumentsOf(const Operation& operation) {
  std::vector<Argument> arguments;
  for (auto rest = operation.arguments; !rest.empty();) {
    auto word = rest.substr(0, rest.find('|'));
    rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    Argument argument{.kind = static_cast<Kind>(word.front())};
    const auto blank = word.find(' ');
    for (const char digit : word.substr(1, blank - 1))
      argument.size = argument.size * 10 + static_cast<std::size_t>(digit - '0');
    argument.name = word.substr(blank + 1);
    arguments.push_back(argument);
  }
  return arguments;
}

bool OnlyReads(const Operation& operation) {
  return operation.name.starts_with(kAsking) ||
         std::find(kReading.begin(), kReading.end(), operation.name) != kReading.end();
}

}  // namespace kestra::tool
