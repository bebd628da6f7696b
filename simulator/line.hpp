#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "packet.hpp"
#include "printer.hpp"

namespace impresora {

using Micros = std::chrono::microseconds;

// Time of day, for the printer's own clock.
class WallClock {
 public:
  virtual ~WallClock() = default;
  virtual std::int64_t LocalSeconds() = 0;  // of local civil time, since 1970
};

struct LineSettings {
  int baud = 0;  // 0: as fast as the host; otherwise ten bits per byte in both directions
  Micros busy_interval = std::chrono::milliseconds(500);
  bool keep_exchanges = false;
};

enum class ExchangeKind { kExecuted, kRepeated, kDamaged };

// One command and what became of it, for the trace.
struct Exchange {
  ExchangeKind kind;
  std::int64_t moment;  // local seconds
  Packet packet;
  Answer answer;
};

// The printer's side of the serial line: bytes in, bytes out, each at its time. It does no input or
// output; whoever drives it brings the bytes and a clock that only moves forward.
class Line {
 public:
  Line(Printer& printer, WallClock& clock, LineSettings settings);

  void Receive(std::string_view bytes, Micros now);

  // Does everything that is due by `now` and returns the bytes that have left by then.
  std::string Advance(Micros now);

  // When Advance has something to do next, if nothing arrives before.
  std::optional<Micros> NextDue() const;

  // Whether the host has confirmed the last answer, and how often it has confirmed any.
  bool acknowledged() const { return acknowledged_; }
  unsigned acknowledgements() const { return acknowledgements_; }

  std::vector<Exchange> TakeExchanges();

 private:
  void Work(Micros now);
  bool TakeByte(Micros now);
  void Handle(const Event& event, Micros at);
  void HandlePacket(const Packet& packet, Micros at);
  void Send(std::string_view bytes, Micros at);
  std::string Leave(Micros now);
  void Keep(ExchangeKind kind, const Packet& packet);

  Printer& printer_;
  WallClock& clock_;
  LineSettings settings_;
  Micros byte_time_;
  PacketDecoder decoder_;

  std::string incoming_;
  std::size_t taken_ = 0;  // bytes of incoming_ already decoded
  Micros next_in_{};       // when the next of them has fully arrived
  std::string outgoing_;
  Micros next_out_{};  // when the first byte of outgoing_ has fully left

  bool working_ = false;
  Micros done_at_{};
  Micros next_busy_{};

  std::string last_body_;  // last command carried out, and its answer
  Answer last_answer_;
  std::string last_frame_;
  bool acknowledged_ = false;
  unsigned acknowledgements_ = 0;
  std::vector<Exchange> exchanges_;
};

}  // namespace impresora
