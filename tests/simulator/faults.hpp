#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "booth.hpp"

namespace impresora::prueba {

// Bytes that leave together, and when: microseconds behind the command.
using Heard = std::vector<std::pair<Micros, std::string>>;

// A printer with fault rules, and a host that hears byte for byte when something arrives.
class Bench : public Booth {
 public:
  explicit Bench(std::string_view rules, Settings settings = {}) : Booth(std::move(settings)) {
    for (const FaultMistake& mistake : session.Faults().Add(rules)) wrong += mistake.Words() + "\n";
  }

  // What comes in answer to a frame, until the line is at rest again.
  Heard Listen(const std::string& frame) {
    Heard heard;
    hung_up = powered_off = false;
    const Micros start = now;
    session.Receive(frame, now);
    Note(session.Advance(now), start, heard);
    while (const auto due = session.NextDue()) {
      now = std::max(now, *due);
      Note(session.Advance(now), start, heard);
    }
    return heard;
  }

  Heard Hear(std::uint8_t sequence, std::initializer_list<std::string_view> parts) {
    return Listen(Frame(sequence, Body(parts)));
  }

  // The same without the times.
  std::string All(std::uint8_t sequence, std::initializer_list<std::string_view> parts) {
    std::string all;
    for (const auto& [at, bytes] : Hear(sequence, parts)) all += bytes;
    return all;
  }

  std::string wrong;
  bool hung_up = false;
  bool powered_off = false;

 private:
  void Note(const Output& output, Micros start, Heard& heard) {
    if (!output.bytes.empty()) heard.emplace_back(now - start, output.bytes);
    hung_up = hung_up || output.hang_up;
    powered_off = powered_off || output.power_off;
  }
};

}  // namespace impresora::prueba
