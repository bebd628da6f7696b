#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "line/line.hpp"

namespace impresora {

// A field as a person knows it.
struct NamedValue {
  std::string name;   // "campo 3" where the command has no such field
  std::string value;  // UTF-8, without the blanks that fill it; empty for an empty field
};

// The command's name, or its code where no printer knows it.
std::string CommandName(std::uint8_t command);

// The byte as it shows in a line: itself, or two hexadecimal digits.
std::string CommandMark(std::uint8_t command);

std::vector<NamedValue> NamedFields(const Packet& packet);
std::vector<NamedValue> NamedAnswer(const Packet& packet, const Answer& answer);

// How long something took, in the unit that suits it: "0,4 ms", "250 ms", "1,2 s".
std::string Duration(Micros took);

// "02 28 40": the bytes on the line as hexadecimal digits.
std::string HexBytes(std::string_view bytes);

// One readable line about an exchange, without the line end. Long values are cut.
std::string Describe(const Exchange& exchange);

}  // namespace impresora
