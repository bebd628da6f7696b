#pragma once

#include <array>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include "exports/exports.hpp"
#include "kestra/kestra.h"

// The rows, which api/generate makes, held against the header; linked.cpp and by_name.cpp show them to the rest.
namespace kestra::exports {

template <class Type>
Type As(const Value& value) {
  if constexpr (std::is_same_v<Type, std::int32_t>) {
    return value.integer;
  } else if constexpr (std::is_same_v<Type, double>) {
    return value.number;
  } else {
    return static_cast<Type>(const_cast<void*>(value.pointer));
  }
}

// Is this how the header declares a parameter of that kind?
template <class Type>
constexpr bool Declares(Kind kind) {
  switch (kind) {
    case Kind::kInteger:
    case Kind::kRoom:
      return std::is_same_v<Type, std::int32_t>;
    case Kind::kAmount:
      return std::is_same_v<Type, double>;
    case Kind::kText:
    case Kind::kTerminated:
      return std::is_same_v<Type, const char*>;
    default:
      return std::is_pointer_v<Type> &&
             std::is_const_v<std::remove_pointer_t<Type>> != (kind == Kind::kResult);
  }
}

template <class Function>
struct Shape;

template <class Result, class... Types>
struct Shape<Result(KESTRA_CALL*)(Types...)> {
  static constexpr std::size_t kCount = sizeof...(Types);

  static constexpr bool Fits(std::span<const Parameter> parameters) {
    std::size_t next = 0;
    return parameters.size() == kCount && (Declares<Types>(parameters[next++].kind) && ...);
  }

  template <std::size_t... Places>
  static std::int32_t Call(Result(KESTRA_CALL* function)(Types...), const Values& values,
                           std::index_sequence<Places...> /*all*/) {
    if constexpr (std::is_void_v<Result>) {
      function(As<Types>(values[Places])...);
      return 0;
    } else {
      return function(As<Types>(values[Places])...);
    }
  }
};

// "t50 z o12 i": letters as Kind has them, each with its bytes.
constexpr void Read(std::string_view letters, Export& row) {
  for (const char letter : letters) {
    if (letter == ' ') continue;
    if (letter < '0' || letter > '9') {
      row.places[row.count++] = {static_cast<Kind>(letter)};
    } else {
      std::size_t& size = row.places[row.count - 1].size;
      size = 10 * size + static_cast<std::size_t>(letter - '0');
    }
  }
}

struct Results {
  Nature nature;
  std::int32_t done;
  std::int32_t failed;
};

constexpr std::int32_t kNotImplemented = static_cast<std::int32_t>(0x80004001U);
constexpr Results kOperation{Nature::kOperation, 0, 1};
constexpr Results kFixed{Nature::kFixed, 0, 0};
constexpr Results kReport{Nature::kReport, 0, -1};
constexpr Results kComponents{Nature::kBeside, kNotImplemented, kNotImplemented};

template <bool kIsLinked, auto Function>
constexpr Export Row(std::string_view name, Results results, std::string_view letters = "",
                     std::string_view sane = "") {
  using OfFunction = Shape<decltype(Function)>;
  Export row{name, results.nature, results.done, results.failed, sane};
  Read(letters, row);
  if (!OfFunction::Fits(row.Parameters())) throw std::logic_error("the header declares others");
  row.call_at = [](void* place, const Values& values) {
    return OfFunction::Call(reinterpret_cast<decltype(Function)>(place), values,
                            std::make_index_sequence<OfFunction::kCount>());
  };
  if constexpr (kIsLinked) {
    row.call = [](const Values& values) {
      return OfFunction::Call(Function, values, std::make_index_sequence<OfFunction::kCount>());
    };
  }
  return row;
}

#define ROW(name, ...) Row<kIsLinked, &(name)>(#name, __VA_ARGS__)
template <bool kIsLinked>
inline constexpr std::array kTable{
#include "exports/rows.inc"
};
#undef ROW

}  // namespace kestra::exports
