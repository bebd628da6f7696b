#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kestra::bench {

// The line's language as the bench needs it, apart from the driver's own.

constexpr char kStx = 2;
constexpr char kEtx = 3;
constexpr char kAck = 6;
constexpr char kDc2 = 18;  // the printer is busy
constexpr char kFs = 28;
constexpr std::size_t kChecksumDigits = 4;

// A whole frame: start, sequence, command with its fields, end, checksum.
std::string Frame(char sequence, std::string_view command);

// True when `bytes` end with an end byte and four more.
bool EndsFrame(std::string_view bytes);

// What a printer that is content answers to a frame.
std::string ContentAnswer(std::string_view frame);

// Picks frames out of what the host writes.
class FrameReader {
 public:
  // True: the byte has completed a frame whose checksum is right.
  bool Take(char byte);
  [[nodiscard]] const std::string& Current() const { return frame_; }
  [[nodiscard]] std::uint64_t Acknowledged() const { return acknowledged_; }

 private:
  std::string frame_;
  bool inside_ = false;
  std::uint64_t acknowledged_ = 0;
};

}  // namespace kestra::bench
