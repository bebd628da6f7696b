#include "state/journal_fields.hpp"

#include <algorithm>
#include <charconv>
#include <utility>

namespace kestra {
namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";
constexpr std::string_view kYes = "si";
constexpr std::string_view kNo = "no";

// What each byte does to the sum.
constexpr auto kSteps = [] {
  std::array<std::uint32_t, 256> steps{};
  for (std::uint32_t byte = 0; byte < steps.size(); ++byte) {
    std::uint32_t sum = byte;
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1u) ^ ((sum & 1u) != 0 ? 0xEDB88320u : 0u);
    steps[byte] = sum;
  }
  return steps;
}();

std::uint32_t Sum(std::string_view text) {
  std::uint32_t sum = 0xFFFFFFFFu;
  for (const char c : text) {
    sum = (sum >> 8u) ^ kSteps[(sum ^ static_cast<unsigned char>(c)) & 0xFFu];
  }
  return ~sum;
}

bool IsPlain(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code >= 0x20 && code != 0x7F && c != '<';
}

}  // namespace

std::string SumText(std::string_view text) {
  std::string digits;
  const std::uint32_t sum = Sum(text);
  for (std::size_t i = kSumDigits; i-- > 0;) digits += kHexDigits[(sum >> (4 * i)) & 0xFu];
  return digits;
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (IsPlain(c)) {
      escaped += c;
      continue;
    }
    const auto code = static_cast<unsigned char>(c);
    escaped.append(1, '<').append(1, kHexDigits[code >> 4u]).append(1, kHexDigits[code & 0xFu]);
    escaped += '>';
  }
  return escaped;
}

// The sum vouches for what was written: a '<' begins what Escaped made of a byte.
std::string Unescaped(std::string_view escaped) {
  std::string text;
  for (std::size_t i = 0; i < escaped.size(); ++i) {
    if (escaped[i] != '<' || i + 3 >= escaped.size()) {
      text += escaped[i];
      continue;
    }
    const std::size_t code = kHexDigits.find(escaped[i + 1]) * 16 + kHexDigits.find(escaped[i + 2]);
    text += static_cast<char>(static_cast<unsigned char>(code));
    i += 3;
  }
  return text;
}

bool ReadInto(std::int64_t& number, std::string_view text) {
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end;
}

bool ReadInto(bool& flag, std::string_view text) {
  flag = text == kYes;
  return flag || text == kNo;
}

bool ReadInto(char& letter, std::string_view text) {
  if (text.size() == 1) letter = text.front();
  return text.size() == 1;
}

bool ReadInto(std::string& value, std::string_view text) {
  value = text;
  return true;
}

bool ReadInto(std::vector<std::string>& values, std::string_view text) {
  values.emplace_back(text);
  return true;
}

// "1234/2": the amount and its slack.
bool ReadInto(Amount& amount, std::string_view text) {
  const std::size_t slash = std::min(text.find('/'), text.size());
  return ReadInto(amount.cents, text.substr(0, slash)) &&
         ReadInto(amount.slack, text.substr(std::min(slash + 1, text.size())));
}

// "5,12,,3": nothing where one is not known.
bool ReadInto(CounterValues& counters, std::string_view text) {
  for (auto& counter : counters) {
    const std::size_t comma = std::min(text.find(','), text.size());
    const auto one = text.substr(0, comma);
    if (!one.empty() && !ReadInto(counter, one)) return false;
    text.remove_prefix(std::min(comma + 1, text.size()));
  }
  return text.empty();
}

void RecordLine::Add(std::string_view name, std::string_view value) {
  Part(std::string(name).append(1, '=').append(Escaped(value)));
}

void RecordLine::Add(std::string_view name, std::int64_t value) {
  Add(name, std::to_string(value));
}

void RecordLine::Add(std::string_view name, bool value) {
  Add(name, value ? kYes : kNo);
}

void RecordLine::Add(std::string_view name, char value) {
  if (value != '\0') Add(name, std::string_view(&value, 1));
}

void RecordLine::Add(std::string_view name, const Amount& value) {
  Add(name, std::to_string(value.cents) + "/" + std::to_string(value.slack));
}

void RecordLine::Add(std::string_view name, const std::vector<std::string>& values) {
  for (const auto& value : values) Add(name, value);
}

void RecordLine::Add(std::string_view name, const CounterValues& values) {
  std::string text;
  for (const auto& value : values) text += "," + (value ? std::to_string(*value) : std::string());
  if (text.size() > kCounters) Add(name, text.substr(1));
}

std::string RecordLine::Finished() && {
  Part(SumText(text_));
  return std::move(text_) + "\n";
}

}  // namespace kestra
