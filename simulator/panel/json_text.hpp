#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace impresora {

// Keys stay in the order that people read them in.
using Json = nlohmann::ordered_json;

// "1210.00", with a point and without separators, for programs.
std::string PlainMoney(std::int64_t hundredths);

// "2026-11-21" and "10:30:00".
std::string IsoDate(std::int64_t moment);
std::string IsoMoment(std::int64_t moment);

// One letter, or nothing for 0.
std::string LetterText(char letter);

// On one line; bytes that are no UTF-8 are replaced.
std::string OneLine(const Json& json);

}  // namespace impresora
