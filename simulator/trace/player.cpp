#include "trace/player.hpp"

#include <algorithm>
#include <utility>

#include "trace/difference.hpp"
#include "trace/exchange_text.hpp"
#include "wire/control_bytes.hpp"

namespace impresora {
namespace {

constexpr std::size_t kChecksumDigits = 4;
constexpr Sides kRecordedSeen{"grabado", "llegó"};

// One answer frame, from its start byte on.
std::string RenumberedFrame(std::string frame, std::uint8_t recorded, std::uint8_t wanted) {
  const std::size_t end = frame.find(kEtx);
  if (frame.size() < 2 || static_cast<std::uint8_t>(frame[1]) != recorded) return frame;
  const bool whole = end != std::string::npos && frame.size() >= end + 1 + kChecksumDigits;
  const bool sound = whole && frame.compare(end + 1, kChecksumDigits,
                                            Hex4(Checksum(frame.substr(0, end + 1)))) == 0;
  frame[1] = static_cast<char>(wanted);
  if (sound) frame.replace(end + 1, kChecksumDigits, Hex4(Checksum(frame.substr(0, end + 1))));
  return frame;
}

}  // namespace

std::string Renumbered(std::string_view answer, std::uint8_t recorded, std::uint8_t wanted) {
  std::string bytes(answer.substr(0, answer.find(kStx)));
  std::size_t start = bytes.size();
  while (start < answer.size()) {
    const std::size_t next = std::min(answer.find(kStx, start + 1), answer.size());
    bytes += RenumberedFrame(std::string(answer.substr(start, next - start)), recorded, wanted);
    start = next;
  }
  return bytes;
}

Player::Player(Recording recording, Tell tell) : tell_(std::move(tell)) {
  std::string before;
  for (RecordedExchange& exchange : recording) {
    Scene scene;
    const std::vector<Event> events = Frames(exchange.host);
    if (const Packet* const packet = CommandOf(events)) {
      scene.command = *packet;
      scene.repeated = packet->body == before;
      before = packet->body;
    }
    scene.exchange = std::move(exchange);
    scenes_.push_back(std::move(scene));
  }
}

void Player::Receive(std::string_view bytes, Micros now) {
  for (const char byte : bytes) {
    if (const auto event = decoder_.Push(byte)) Handle(*event, now);
  }
}

Output Player::Advance(Micros now) {
  Output output;
  while (!bursts_.empty() && bursts_.front().at <= now) {
    output.bytes += bursts_.front().bytes;
    bursts_.pop_front();
  }
  return output;
}

std::optional<Micros> Player::NextDue() const {
  if (bursts_.empty()) return std::nullopt;
  return bursts_.front().at;
}

void Player::NewHost() {
  bursts_.clear();
  decoder_ = {};
  last_body_.clear();  // whoever comes now has not asked for anything yet
}

void Player::Handle(const Event& event, Micros now) {
  if (event.kind == EventKind::kDamagedFrame) bursts_.push_back({now, std::string(1, kNak)});
  if (event.kind == EventKind::kPacket) HandlePacket(event.packet, now);
}

// The first scene from there on that waits for a command of its own.
std::size_t Player::Upcoming(std::size_t from) const {
  while (from < scenes_.size() && (!scenes_[from].command || scenes_[from].repeated)) ++from;
  return from;
}

bool Player::Follows(std::size_t scene, const Packet& packet) const {
  return scene < scenes_.size() && scenes_[scene].command->command == packet.command;
}

// The nearest scene ahead with that command, else the last one behind.
std::optional<std::size_t> Player::Elsewhere(const Packet& packet) const {
  for (std::size_t i = Upcoming(next_); i < scenes_.size(); i = Upcoming(i + 1)) {
    if (Follows(i, packet)) return i;
  }
  for (std::size_t i = std::min(next_, scenes_.size()); i-- > 0;) {
    if (scenes_[i].command && Follows(i, packet)) return i;
  }
  return std::nullopt;
}

void Player::Stray(const std::string& words) {
  ++strayed_;
  tell_(words);
}

// A host that comes back to the recorded order after something out of turn is followed there.
void Player::HandlePacket(const Packet& packet, Micros now) {
  if (packet.body == last_body_) {
    bursts_.push_back({now, last_answer_});
    return;
  }
  last_body_ = packet.body;
  last_answer_.clear();
  const std::size_t turn = Upcoming(next_);
  const std::size_t after_aside = aside_ ? Upcoming(*aside_ + 1) : scenes_.size();
  for (const std::size_t scene : {turn, after_aside}) {
    if (!Follows(scene, packet)) continue;
    next_ = scene + 1;
    aside_.reset();
    return Play(scene, packet, now);
  }
  const std::string expected =
      turn < scenes_.size() ? ExchangeName(scenes_[turn].exchange.number, *scenes_[turn].command)
                            : "el final";
  const std::string came = CommandMark(packet.command) + " " + CommandName(packet.command);
  aside_ = Elsewhere(packet);
  if (!aside_) return Stray("se esperaba " + expected + " y llegó " + came + ": no hay respuesta");
  Stray("se esperaba " + expected + " y llegó " + came + ": se responde como el " +
        std::to_string(scenes_[*aside_].exchange.number));
  Play(*aside_, packet, now);
}

void Player::Play(std::size_t index, const Packet& packet, Micros now) {
  const Scene& scene = scenes_[index];
  for (const std::string& words : CommandDifferences(*scene.command, packet, kRecordedSeen, true)) {
    Stray("intercambio " + ExchangeName(scene.exchange.number, *scene.command) + ": " + words);
  }
  const RecordedExchange& recorded = scene.exchange;
  const Micros took = recorded.answered - recorded.received;
  for (unsigned i = 1; i <= recorded.busy; ++i) {
    bursts_.push_back({now + took * i / (recorded.busy + 1), std::string(1, kDc2)});
  }
  last_answer_ = Renumbered(recorded.printer, scene.command->sequence, packet.sequence);
  if (!last_answer_.empty()) bursts_.push_back({now + took, last_answer_});
}

}  // namespace impresora
