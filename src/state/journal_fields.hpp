#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "state/certainty.hpp"

namespace kestra {

// The values of a journal's records as text, and back.

constexpr char kBetweenParts = '\t';
constexpr std::size_t kSumDigits = 8;

// The usual 32-bit checksum of files, in hexadecimal digits.
std::string SumText(std::string_view text);

// Bytes that a part of a line cannot hold are written <1c>.
std::string Escaped(std::string_view text);
std::string Unescaped(std::string_view escaped);

using CounterValues = std::array<std::optional<std::int64_t>, kCounters>;

// False when the text is none of that type.
bool ReadInto(std::int64_t& number, std::string_view text);
bool ReadInto(bool& flag, std::string_view text);
bool ReadInto(char& letter, std::string_view text);
bool ReadInto(std::string& value, std::string_view text);
bool ReadInto(std::vector<std::string>& values, std::string_view text);  // one more of them
bool ReadInto(Amount& amount, std::string_view text);
bool ReadInto(CounterValues& counters, std::string_view text);

template <typename Value>
bool ReadInto(std::optional<Value>& value, std::string_view text) {
  return ReadInto(value.emplace(), text);
}

// A record's line as it grows. What is not known adds nothing.
class RecordLine {
 public:
  explicit RecordLine(std::string_view kind) : text_(kind) {}

  void Part(std::string_view part) { text_.append(1, kBetweenParts).append(part); }

  void Add(std::string_view name, std::string_view value);
  void Add(std::string_view name, std::int64_t value);
  void Add(std::string_view name, bool value);
  void Add(std::string_view name, char value);
  void Add(std::string_view name, const Amount& value);
  void Add(std::string_view name, const std::vector<std::string>& values);
  void Add(std::string_view name, const CounterValues& values);
  template <typename Value>
  void Add(std::string_view name, const std::optional<Value>& value) {
    if (value) Add(name, *value);
  }

  // The line with its sum and its end.
  std::string Finished() &&;

 private:
  std::string text_;
};

}  // namespace kestra
