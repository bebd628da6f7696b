#include "protocol/packet.hpp"

namespace kestra {
namespace {

bool InRange(int sequence) {
  return sequence >= kFirstSequence && sequence <= kLastSequence;
}

int HalfToEven(int value) {
  const int half = value / 2;
  return value % 2 != 0 && half % 2 != 0 ? half + 1 : half;
}

}  // namespace

SequenceNumbers NextSequence(SequenceNumbers sequence, int seconds) {
  int next = sequence.current + 1;
  if (InRange(next)) return {static_cast<std::int16_t>(next), sequence.previous};
  while (!InRange(next) || next == sequence.previous) {
    const int before = next;
    next += seconds;
    if (next < 35) next += 35;
    if (next >= 71) next = HalfToEven(next);
    // A second that leads back to the number to avoid would do so until the next one: take that.
    if (next == before) seconds = (seconds + 1) % 60;
  }
  return {static_cast<std::int16_t>(next), static_cast<std::int16_t>(next)};
}

std::string BuildPacket(std::int16_t sequence, std::string_view command) {
  return std::string{kStx, static_cast<char>(sequence)}.append(command).append(1, kEtx);
}

std::string ChecksumOf(std::string_view packet) {
  unsigned sum = 0;
  for (const char c : packet) sum += static_cast<unsigned char>(c);
  std::string digits(kChecksumDigits, '0');
  for (auto i = digits.size(); i > 0; --i, sum /= 16) {
    digits[i - 1] = "0123456789ABCDEF"[sum % 16];
  }
  return digits;
}

std::size_t AnswerLength(std::string_view received) {
  const auto end = received.find(kEtx);
  if (end == std::string_view::npos) return 0;
  const auto length = end + 1 + kChecksumDigits;
  return received.size() >= length ? length : 0;
}

std::string_view AnswerHeader(std::string_view answer) {
  const auto start = answer.find(kStx);
  if (start == std::string_view::npos) return {};
  return answer.substr(start + 1, 2);
}

std::string TrimAnswer(std::string_view answer) {
  const auto length = AnswerLength(answer);
  if (length != 0) answer = answer.substr(0, length);
  const auto start = answer.find(kStx);
  return std::string(start == std::string_view::npos ? answer : answer.substr(start));
}

}  // namespace kestra
