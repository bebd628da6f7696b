#pragma once

#include <sys/types.h>

#include <atomic>
#include <cstdint>
#include <string>

#include "moment.hpp"

namespace kestra::bench {

enum class Manner {
  kInstant,  // answers each frame at once, with one write
  kBusy,     // says "busy" every half second for kBusyTime before it answers
  kPaced,    // lets every byte, both ways, take its time at kPacedBaud
};

constexpr Moment kBusyTime = 5 * kSecond;
constexpr int kPacedBaud = 9600;
constexpr Moment kByteTime = 10 * kSecond / kPacedBaud;  // start bit, eight data bits, stop bit

// What the printer has seen so far, shared with the host's process.
struct Tally {
  std::atomic<std::uint64_t> bytes_received = 0;
  std::atomic<std::uint64_t> bytes_sent = 0;
  std::atomic<std::uint64_t> answers = 0;
  std::atomic<std::uint64_t> acknowledged = 0;
  std::atomic<Moment> received_until = 0;  // when the last byte had crossed the line
};

// A content printer on a pseudo-terminal. It lives in a process of its own, so that its memory and
// its processor time are not the host's, and dies with this object or with the host.
class Printer {
 public:
  explicit Printer(Manner manner);
  Printer(const Printer&) = delete;
  Printer& operator=(const Printer&) = delete;
  ~Printer();

  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] const Tally& Seen() const { return *tally_; }

  // Waits, for at most a second, until every answer's acknowledgement has come in.
  [[nodiscard]] bool AllAcknowledged() const;

 private:
  std::string path_;
  Tally* tally_ = nullptr;
  pid_t process_ = -1;
};

}  // namespace kestra::bench
