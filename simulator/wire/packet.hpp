#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace impresora {

// One command as the host framed it.
struct Packet {
  std::uint8_t sequence = 0;
  std::uint8_t command = 0;
  std::vector<std::string> fields;
  bool well_formed = true;  // false when something other than a separator follows the command byte
  std::string body;         // sequence, command and fields as they came, to recognise a repetition
};

enum class EventKind { kPacket, kDamagedFrame, kAck };

struct Event {
  EventKind kind = EventKind::kPacket;
  Packet packet{};
  std::string raw{};  // the frame as it came
};

// Sum of the bytes, modulo 65536.
std::uint16_t Checksum(std::string_view bytes);

// Four upper-case hexadecimal digits.
std::string Hex4(std::uint16_t value);

// Start byte, sequence, body, end byte and checksum.
std::string Frame(std::uint8_t sequence, std::string_view body);

// Finds frames in a stream of bytes however it was cut into pieces. Whatever stands between frames
// is ignored; a start byte always begins anew, so half a frame never swallows the next one.
class PacketDecoder {
 public:
  std::optional<Event> Push(char byte);

 private:
  enum class State { kBetweenFrames, kInFrame, kInChecksum };

  std::optional<Event> PushBetweenFrames(char byte);
  std::optional<Event> PushInFrame(char byte);
  std::optional<Event> PushInChecksum(char byte);
  Event Finish() const;

  State state_ = State::kBetweenFrames;
  std::string frame_;
  std::string checksum_;
};

}  // namespace impresora
