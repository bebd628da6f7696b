#include "wire/packet.hpp"

#include "wire/control_bytes.hpp"

namespace impresora {
namespace {

// Longer than any command; a line stuck in noise must not fill the memory.
constexpr std::size_t kLongestFrame = 4096;
constexpr std::size_t kShortestFrame = 4;  // start, sequence, command, end
constexpr std::size_t kChecksumDigits = 4;
constexpr std::uint8_t kFirstSequence = 0x20;
constexpr std::uint8_t kLastSequence = 0x7F;

std::uint8_t Code(char c) {
  return static_cast<std::uint8_t>(c);
}

// `text` starts at the first separator.
std::vector<std::string> SplitFields(std::string_view text) {
  std::vector<std::string> fields;
  while (!text.empty()) {
    text.remove_prefix(1);
    const std::string_view field = text.substr(0, text.find(kFs));
    fields.emplace_back(field);
    text.remove_prefix(field.size());
  }
  return fields;
}

Packet Parse(std::string_view body) {
  Packet packet;
  packet.body = body;
  packet.sequence = Code(body[0]);
  packet.command = Code(body[1]);
  const std::string_view rest = body.substr(2);
  packet.well_formed = rest.empty() || rest.front() == kFs;
  if (packet.well_formed) packet.fields = SplitFields(rest);
  return packet;
}

}  // namespace

std::uint16_t Checksum(std::string_view bytes) {
  unsigned sum = 0;
  for (const char c : bytes) sum += Code(c);
  return static_cast<std::uint16_t>(sum & 0xFFFFU);
}

std::string Hex4(std::uint16_t value) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text(kChecksumDigits, '0');
  unsigned rest = value;
  for (std::size_t i = text.size(); i-- > 0; rest >>= 4U) text[i] = kDigits[rest & 0xFU];
  return text;
}

std::string Frame(std::uint8_t sequence, std::string_view body) {
  std::string frame;
  frame.reserve(body.size() + 7);
  frame += kStx;
  frame += static_cast<char>(sequence);
  frame += body;
  frame += kEtx;
  frame += Hex4(Checksum(frame));
  return frame;
}

std::optional<Event> PacketDecoder::Push(char byte) {
  if (byte == kStx) {
    state_ = State::kInFrame;
    frame_.assign(1, byte);
    return std::nullopt;
  }
  switch (state_) {
    case State::kInFrame:
      return PushInFrame(byte);
    case State::kInChecksum:
      return PushInChecksum(byte);
    case State::kBetweenFrames:
      break;
  }
  return PushBetweenFrames(byte);
}

std::optional<Event> PacketDecoder::PushBetweenFrames(char byte) {
  if (byte == kAck) return Event{.kind = EventKind::kAck};
  return std::nullopt;
}

std::optional<Event> PacketDecoder::PushInFrame(char byte) {
  frame_ += byte;
  if (byte == kEtx) {
    state_ = State::kInChecksum;
    checksum_.clear();
  } else if (frame_.size() > kLongestFrame) {
    state_ = State::kBetweenFrames;
    return Event{.kind = EventKind::kDamagedFrame, .raw = frame_};
  }
  return std::nullopt;
}

std::optional<Event> PacketDecoder::PushInChecksum(char byte) {
  checksum_ += byte;
  if (checksum_.size() < kChecksumDigits) return std::nullopt;
  state_ = State::kBetweenFrames;
  return Finish();
}

Event PacketDecoder::Finish() const {
  Event event{.kind = EventKind::kDamagedFrame, .raw = frame_ + checksum_};
  if (frame_.size() < kShortestFrame || checksum_ != Hex4(Checksum(frame_))) return event;
  const std::uint8_t sequence = Code(frame_[1]);
  if (sequence < kFirstSequence || sequence > kLastSequence) return event;
  event.kind = EventKind::kPacket;
  event.packet = Parse(std::string_view(frame_).substr(1, frame_.size() - 2));
  return event;
}

}  // namespace impresora
