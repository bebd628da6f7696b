#include "golden/frame_check.hpp"

#include <array>
#include <cstdint>
#include <cstdio>

namespace kestra::golden {

std::string Checksum(std::string_view bytes) {
  unsigned sum = 0;
  for (const char c : bytes) sum += static_cast<unsigned char>(c);
  std::array<char, 5> digits{};
  (void)std::snprintf(digits.data(), digits.size(), "%04X", sum & 0xFFFFU);
  return digits.data();
}

std::string JournalSum(std::string_view line) {
  std::uint32_t rest = 0xFFFFFFFFU;
  for (const char c : line) {
    rest ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) rest = (rest >> 1U) ^ (0xEDB88320U & (0U - (rest & 1U)));
  }
  std::array<char, 9> digits{};
  (void)std::snprintf(digits.data(), digits.size(), "%08x", static_cast<unsigned>(~rest));
  return digits.data();
}

bool IsFrame(std::string_view bytes) {
  constexpr std::size_t sum_length = 4;
  constexpr std::size_t shortest = 1 + 1 + 1 + 1 + sum_length;
  if (bytes.size() < shortest) return false;
  const std::string_view summed = bytes.substr(0, bytes.size() - sum_length);
  const int sequence = static_cast<unsigned char>(bytes[1]);
  return summed.front() == '\x02' && summed.back() == '\x03' && sequence >= 32 && sequence <= 70 &&
         summed.find('\x03') == summed.size() - 1 &&
         bytes.substr(summed.size()) == Checksum(summed);
}

}  // namespace kestra::golden
