#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/seam/serial_port.hpp"

namespace kestra::tool {

// What came of one frame.
struct Reply {
  bool answered = false;            // its own answer, with a right sum
  std::vector<std::string> fields;  // both status words, then its data; windows-1252
  double seconds = 0;     // from the frame to the end of the answer, or to the end of the patience
  std::size_t bytes = 0;  // that came, of whatever kind
  int busy = 0;           // how often the printer asked for patience
  int refusals = 0;       // of damaged frames
  int damaged = 0;        // answers whose sum is wrong
  int foreign = 0;        // answers to other frames
  bool echo = false;      // the frame itself came back
};

// How long to wait, in seconds.
struct Wait {
  double silence = 5.0;  // from the frame, or the last word that the printer is busy
  double all = 30.0;     // whatever it says
};

// Asks the printer by frames of its own, past the library: nothing goes to fiscal.log or the journal, and nothing
// that is pending is touched. The port is open for one exchange at a time, as the library has it: a till that
// works at the same time is in nobody's way for longer.
class Probe {
 public:
  explicit Probe(std::unique_ptr<SerialPort> port);

  // Failures of the line throw Failure.
  Reply Ask(std::string_view command, Wait wait = {});

  // The same frame twice, the second one so many milliseconds behind the first one's answer, as of a host that has
  // missed it: it is not acknowledged. The answer to the second.
  Reply AskTwice(std::string_view command, std::int32_t milliseconds, Reply& first);

 private:
  Reply Exchange(std::string_view frame, Wait wait, bool acknowledge = true);
  std::string NextFrame(std::string_view command);

  std::unique_ptr<SerialPort> port_;
  std::int16_t sequence_;
};

}  // namespace kestra::tool
