#include "packet.hpp"

#include <array>

namespace kestra::bench {
namespace {

std::string Checksum(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  unsigned sum = 0;
  for (const char byte : bytes) sum += static_cast<unsigned char>(byte);
  std::string digits;
  for (const unsigned shift : {12U, 8U, 4U, 0U}) digits += kDigits[(sum >> shift) & 15U];
  return digits;
}

// Data behind the status words, by command byte; the other commands bring none.
struct DataRow {
  char command;
  std::string_view fields;
};
constexpr std::array kData = {
    DataRow{'E',
            "\x1C"
            "00000042"},
};

std::string_view DataOf(char command) {
  for (const auto& row : kData) {
    if (row.command == command) return row.fields;
  }
  return {};
}

}  // namespace

std::string Frame(char sequence, std::string_view command) {
  std::string frame = {kStx, sequence};
  frame.append(command).append(1, kEtx);
  return frame + Checksum(frame);
}

bool EndsFrame(std::string_view bytes) {
  return bytes.size() > kChecksumDigits && bytes[bytes.size() - 1 - kChecksumDigits] == kEtx;
}

std::string ContentAnswer(std::string_view frame) {
  std::string answer(1, frame[2]);
  answer.append(1, kFs).append("0080").append(1, kFs).append("0600").append(DataOf(frame[2]));
  return Frame(frame[1], answer);
}

bool FrameReader::Take(char byte) {
  if (!inside_) {
    acknowledged_ += byte == kAck ? 1U : 0U;
    inside_ = byte == kStx;
    frame_.assign(inside_ ? 1 : 0, byte);
    return false;
  }
  frame_ += byte;
  if (!EndsFrame(frame_)) return false;
  inside_ = false;
  const auto signed_part = std::string_view(frame_).substr(0, frame_.size() - kChecksumDigits);
  return Checksum(signed_part) == frame_.substr(signed_part.size());
}

}  // namespace kestra::bench
