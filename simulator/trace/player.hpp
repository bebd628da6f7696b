#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "line/session.hpp"
#include "trace/recording.hpp"

namespace impresora {

// Stands where a Session stands, but has no printer: each command of the host gets the answer that
// was recorded for it, after the time that it took. What the host does otherwise than the recorded
// one is told in words.
class Player {
 public:
  using Tell = std::function<void(const std::string&)>;

  Player(Recording recording, Tell tell);

  void Receive(std::string_view bytes, Micros now);
  Output Advance(Micros now);
  std::optional<Micros> NextDue() const;

  // What is under way is dropped; the recording goes on where it was.
  void NewHost();
  void Restart() { NewHost(); }

  // Whether every recorded command has had its turn, and how often the host strayed.
  bool Finished() const { return Upcoming(next_) == scenes_.size(); }
  unsigned Strayed() const { return strayed_; }

 private:
  // A recorded exchange with its command taken apart.
  struct Scene {
    RecordedExchange exchange;
    std::optional<Packet> command;  // none where the printer got it damaged
    bool repeated = false;          // the same frame as the one before
  };
  struct Burst {
    Micros at;
    std::string bytes;
  };

  void Handle(const Event& event, Micros now);
  void HandlePacket(const Packet& packet, Micros now);
  void Play(std::size_t scene, const Packet& packet, Micros now);
  bool Follows(std::size_t scene, const Packet& packet) const;
  std::size_t Upcoming(std::size_t from) const;
  std::optional<std::size_t> Elsewhere(const Packet& packet) const;
  void Stray(const std::string& words);

  std::vector<Scene> scenes_;
  Tell tell_;
  PacketDecoder decoder_;
  std::deque<Burst> bursts_;
  std::size_t next_ = 0;
  std::optional<std::size_t> aside_;  // the scene last played out of turn
  std::string last_body_;
  std::string last_answer_;
  unsigned strayed_ = 0;
};

// A recorded answer under the number of the command that it now answers. A checksum that was wrong
// stays wrong.
std::string Renumbered(std::string_view answer, std::uint8_t recorded, std::uint8_t wanted);

}  // namespace impresora
