#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "machine.hpp"
#include "packet.hpp"

namespace impresora {

struct Answer {
  std::uint16_t printer = 0;
  std::uint16_t fiscal = 0;
  std::vector<std::string> fields;
};

// The fiscal printer as such: commands in, answers and paper out. It does no input or output and
// looks at no clock; who drives it says what time it is, in seconds of local civil time.
class Printer {
 public:
  explicit Printer(Settings settings);

  Answer Execute(const Packet& packet, std::int64_t local_seconds);

  // How long a command keeps the printer busy before it answers.
  std::chrono::milliseconds WorkTime(std::uint8_t command) const;

  std::vector<std::string> TakePaper() { return machine_.paper.Take(); }

  // What goes wrong with the machine, for whoever plays the part of the world.
  Faults& faults() { return machine_.faults; }
  void set_closings_left(int count) { machine_.closings_left = count; }

  Stage stage() const { return machine_.stage(); }
  unsigned documents_closed() const { return machine_.documents_closed; }
  unsigned drawer_openings() const { return machine_.drawer_openings; }
  const Settings& settings() const { return machine_.settings; }

 private:
  Machine machine_;
};

// The answer as it goes out on the line.
std::string FrameAnswer(const Packet& packet, const Answer& answer);

}  // namespace impresora
