#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "commands/printer.hpp"
#include "wire/burst.hpp"
#include "wire/packet.hpp"

namespace impresora {

class FaultPlan;

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

// kLost: a fault kept the command from being carried out, and nothing refused it.
enum class ExchangeKind { kExecuted, kRepeated, kDamaged, kLost };

// One command and what became of it, for the trace.
struct Exchange {
  ExchangeKind kind = ExchangeKind::kExecuted;
  std::int64_t moment = 0;  // local seconds
  Packet packet{};
  Answer answer{};  // what the printer meant, whatever faults made of it

  unsigned number = 0;                // 1, 2, 3...
  Micros received_at{};               // when the last byte of the command was there
  Micros answered_at{};               // when the last byte of the answer had left
  std::string raw_command{};          // bytes on the wire
  std::string raw_answer{};           // the same, without the bytes that say "busy"
  unsigned busy_bytes = 0;            // that went out before the answer
  std::vector<std::string> faults{};  // that touched it, as their rules name them
};

// What leaves the printer: bytes, and behind them perhaps the end of the line or of the power.
struct Output {
  std::string bytes{};
  bool hang_up = false;
  bool power_off = false;
  Micros off_time{};
};

// The printer's side of the serial line: bytes in, bytes out, each at its time. It does no input or
// output; whoever drives it brings the bytes and a clock that only moves forward.
class Line {
 public:
  // Without `faults` nothing goes wrong.
  Line(Printer& printer, WallClock& clock, LineSettings settings, FaultPlan* faults = nullptr);

  void Receive(std::string_view bytes, Micros now);

  // One byte of what has arrived, with all that is due before it; false when there is none.
  bool Step(Micros now);

  // What has left by `now`.
  Output Leave(Micros now);

  // All steps and what has left, for a line that is neither hung up nor switched off.
  std::string Advance(Micros now);

  // When there is something to do next, if nothing arrives before.
  std::optional<Micros> NextDue() const;

  // Forgets what is on its way either way and that somebody may ask again; with the power goes the
  // last answer too.
  void Clear();
  void SwitchOff();

  // Whether the host has confirmed the last answer, and how often it has confirmed any.
  bool Acknowledged() const { return acknowledged_; }
  unsigned Acknowledgements() const { return acknowledgements_; }

  // Frames and confirmations so far, sound or not: what of a host's bytes made sense.
  unsigned Heard() const { return exchange_number_ + acknowledgements_; }

  std::vector<Exchange> TakeExchanges();

 private:
  // The last command carried out, what it was answered, and how it went before the line. The body is
  // empty once nobody can be waiting for that answer.
  struct Done {
    std::string body;
    Answer answer;
    std::string frame;
    Stage stage = Stage::kIdle;
  };

  void Work(Micros now);
  void SayBusy(Micros now);
  bool TakeByte(Micros now);
  void Handle(const Event& event, Micros at);
  void Refuse(const Event& event, Micros at);
  void HandlePacket(const Event& event, Micros at);
  bool IsSecondTry(const Packet& packet, Micros at) const;
  bool Heard(const Packet& packet, Micros at);
  void CarryOut(const Packet& packet);
  Verdict Judge(const Packet& packet, std::uint64_t lines);
  void Schedule(Verdict verdict, Micros start);
  void Begin(ExchangeKind kind, const Event& event, Micros at);
  void Finish();
  std::optional<Micros> WorkDue() const;
  Micros Send(std::string_view bytes, Micros at);
  std::string LeaveBytes(Micros now);

  Printer& printer_;
  WallClock& clock_;
  LineSettings settings_;
  FaultPlan* faults_;
  Micros byte_time_;
  PacketDecoder decoder_;

  std::string incoming_;
  std::size_t taken_ = 0;  // bytes of incoming_ already decoded
  Micros next_in_{};       // when the next of them has fully arrived
  std::string outgoing_;
  Micros next_out_{};  // when the first byte of outgoing_ has fully left

  // The command being worked on: busy for a while, then the bursts, each at the moment (not after
  // the time) it says.
  bool working_ = false;
  Micros busy_until_{};
  Micros next_busy_{};
  std::deque<Burst> bursts_;
  Micros free_at_{};  // when the last command was done with
  Exchange current_;

  Done done_;
  std::string former_frame_;  // the answer before the one in done_
  bool acknowledged_ = false;
  unsigned acknowledgements_ = 0;
  unsigned exchange_number_ = 0;
  std::vector<Exchange> exchanges_;
};

}  // namespace impresora
