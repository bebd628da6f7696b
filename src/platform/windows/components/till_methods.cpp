#include "platform/windows/components/till_methods.hpp"

#include <algorithm>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include "kestra/kestra.h"

namespace kestra {
namespace {

template <typename Type>
Type As(PlaceValue& value) {
  if constexpr (std::is_same_v<Type, std::int32_t>) {
    return value.integer;
  } else if constexpr (std::is_same_v<Type, double>) {
    return value.amount;
  } else {
    return value.text.data();
  }
}

// Is this how the header declares what stands in a place of that kind?
template <typename Type>
constexpr bool Declares(PlaceKind kind) {
  switch (kind) {
    case PlaceKind::kText:
    case PlaceKind::kTerminated:
      return std::is_same_v<Type, const char*>;
    case PlaceKind::kResult:
      return std::is_same_v<Type, char*>;
    case PlaceKind::kAmount:
      return std::is_same_v<Type, double>;
    case PlaceKind::kInteger:
    case PlaceKind::kRoom:
      return std::is_same_v<Type, std::int32_t>;
  }
  return false;
}

template <typename Function>
struct Shape;

template <typename... Types>
struct Shape<std::int32_t(KESTRA_CALL*)(Types...)> {
  static constexpr bool Fits(std::span<const Place> places) {
    std::size_t next = 0;
    return places.size() == sizeof...(Types) && (Declares<Types>(places[next++].kind) && ...);
  }

  static std::int32_t Call(void* address, PlaceValues& values) {
    const auto call = [&]<std::size_t... Places>(std::index_sequence<Places...> /*all*/) {
      using Function = std::int32_t(KESTRA_CALL*)(Types...);
      return reinterpret_cast<Function>(address)(As<Types>(values[Places])...);
    };
    return call(std::index_sequence_for<Types...>());
  }
};

// "t50 z o12 i": letters as PlaceKind has them, each with its bytes.
constexpr void Read(std::string_view letters, Method& row) {
  for (const char letter : letters) {
    if (letter == ' ') continue;
    if (letter < '0' || letter > '9') {
      row.places[row.count++].kind = static_cast<PlaceKind>(letter);
    } else {
      auto& bytes = row.places[row.count - 1].bytes;
      const int longer = 10 * bytes + (letter - '0');
      if (longer > 255) throw std::logic_error("a place has more bytes than a row can say");
      bytes = static_cast<std::uint8_t>(longer);
    }
  }
}

template <typename Function>
constexpr Method Row(std::string_view name, std::string_view letters) {
  Method row{.name = name, .call = Shape<Function>::Call};
  Read(letters, row);
  if (!Shape<Function>::Fits(row.Places())) throw std::logic_error("the header declares others");
  return row;
}

#define ROW(name, letters) Row<decltype(&(name))>(#name, letters)
constexpr std::array kMethods{
#include "platform/windows/components/till_rows.inc"
};
#undef ROW

// The names are ASCII; a script's letters are compared as VBScript does, whatever the country.
constexpr wchar_t Lower(wchar_t letter) {
  return letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter - L'A' + L'a') : letter;
}

constexpr bool SameLetter(wchar_t left, char right) {
  return Lower(left) == Lower(static_cast<wchar_t>(right));
}

}  // namespace

std::span<const Method> Methods() {
  return kMethods;
}

const Method* FindMethod(std::wstring_view name) {
  const auto* const found = std::ranges::find_if(
      kMethods, [&](const Method& row) { return std::ranges::equal(name, row.name, SameLetter); });
  return found == kMethods.end() ? nullptr : found;
}

}  // namespace kestra
