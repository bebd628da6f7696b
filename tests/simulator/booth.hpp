#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>

#include "host.hpp"
#include "line/session.hpp"

namespace impresora::prueba {

// A clock that stands where the test puts it.
class StoppedClock : public WallClock {
 public:
  std::int64_t LocalSeconds() override { return moment; }
  std::int64_t moment = OpeningTime();
};

// A host at the end of a printer's line, or of anything that sits there.
template <typename Sitter>
std::string Ask(Sitter& sitter, const std::string& frame, Micros& now) {
  sitter.Receive(frame, now);
  std::string heard = sitter.Advance(now).bytes;
  while (const auto due = sitter.NextDue()) {
    now = std::max(now, *due);
    heard += sitter.Advance(now).bytes;
  }
  sitter.Receive(std::string(1, kAck), now);
  heard += sitter.Advance(now).bytes;
  return heard;
}

// A session with the observers of the test; it begins with the line at rest for an hour.
class Booth {
 public:
  explicit Booth(Settings settings = {}) : session(std::move(settings), clock, {}) {}

  std::string Send(std::uint8_t sequence, std::initializer_list<std::string_view> parts) {
    return Ask(session, Frame(sequence, Body(parts)), now);
  }

  // A ticket of one item, with the numbers from `sequence` on.
  void Ticket(std::uint8_t sequence) {
    Send(sequence, {"@", "C"});
    Send(static_cast<std::uint8_t>(sequence + 1),
         {"B", "Pan  ", "1000", "1000", "2100", "M", "0001", "0000", "0"});
    Send(static_cast<std::uint8_t>(sequence + 2), {"E", "T"});
  }

  StoppedClock clock;
  Session session;
  Micros now = std::chrono::hours(1);
};

// One that somebody watches from the start.
template <typename Watcher>
class Watched : public Booth {
 public:
  explicit Watched(Settings settings = {}) : Booth(std::move(settings)) { session.Attach(watcher); }

  Watcher watcher;
};

}  // namespace impresora::prueba
