#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kestra {

// What stands in one place of an export's arguments; the letters are those of till_rows.inc.
enum class PlaceKind : char {
  kText = 't',        // of so many bytes
  kTerminated = 'z',  // a text that a zero ends
  kResult = 'o',      // room for so many bytes, or for as many as the kRoom behind it says
  kRoom = 'n',        // a script has no such argument: its texts are as long as they are
  kInteger = 'i',
  kAmount = 'd',
};

struct Place {
  PlaceKind kind{};
  std::uint8_t bytes = 0;
};

constexpr std::size_t kMostPlaces = 13;

// What is handed to the export in one place.
struct PlaceValue {
  std::string text;  // with its padding or its zero; for a result the room that it has
  double amount = 0;
  std::int32_t integer = 0;
};
using PlaceValues = std::array<PlaceValue, kMostPlaces>;

// An export, as scripts call it.
struct Method {
  std::string_view name;
  std::array<Place, kMostPlaces> places{};
  std::size_t count = 0;
  // Calls the export that has this address.
  std::int32_t (*call)(void* address, PlaceValues& values) = nullptr;

  [[nodiscard]] constexpr std::span<const Place> Places() const {
    return std::span(places).first(count);
  }
};

std::span<const Method> Methods();

// By its name, without regard to case; null when there is none.
const Method* FindMethod(std::wstring_view name);

}  // namespace kestra
