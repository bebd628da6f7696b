#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kestra {

constexpr char kStx = '\x02';
constexpr char kEtx = '\x03';
constexpr char kAck = '\x06';
constexpr char kCr = '\x0D';
constexpr char kDc2 = '\x12';  // the printer works and asks for patience
constexpr char kFs = '\x1C';   // stands before each field

constexpr std::size_t kChecksumDigits = 4;

// The sequence numbers that the printer takes.
constexpr std::int16_t kFirstSequence = 32;
constexpr std::int16_t kLastSequence = 70;

struct SequenceNumbers {
  std::int16_t current = 0;   // NroSecuencia
  std::int16_t previous = 0;  // NroSecuenciaAnterior: the last one that was seeded anew
};

// The next sequence number. Outside the printer's range it is seeded anew from `seconds`, the
// seconds of the current minute, away from the one seeded last.
SequenceNumbers NextSequence(SequenceNumbers sequence, int seconds);

// Start byte, sequence byte, command, end byte.
std::string BuildPacket(std::int16_t sequence, std::string_view command);

// Four upper-case hexadecimal digits: the sum of the bytes modulo 65536.
std::string ChecksumOf(std::string_view packet);

// The part of the collected bytes that is one answer: through the fourth character behind the first
// end byte. 0: the answer is not whole yet.
std::size_t AnswerLength(std::string_view received);

// The two characters behind the first start byte; shorter when they are not there.
std::string_view AnswerHeader(std::string_view answer);

// From the start byte through the checksum, without the noise before.
std::string TrimAnswer(std::string_view answer);

}  // namespace kestra
