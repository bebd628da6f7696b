#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "commands/printer.hpp"
#include "faults/fault_plan.hpp"
#include "line/line.hpp"
#include "line/till.hpp"

namespace impresora {

// Who wants to know what the printer does. A session tells it when the bytes that belong to the
// news have already been handed out, so that no host waits for a file or a picture.
struct Observer {
  virtual ~Observer() = default;
  // With Attach, when a document is open: what it has on its paper from before.
  virtual void Resumed(const std::vector<PaperLine>& /*paper*/) {}
  virtual void Exchanged(const Exchange& /*exchange*/) {}
  virtual void Printed(const PaperLine& /*line*/) {}  // all of a document before its Closed
  virtual void Closed(const Receipt& /*receipt*/) {}
  virtual void Changed() {}  // after the others: the printer may be in another state
};

struct SessionSettings {
  int baud = 0;  // 0: as fast as the host; otherwise ten bits per byte in both directions
  Micros busy_interval = std::chrono::milliseconds(500);
  std::uint64_t seed = 1;  // of the fault rules
};

// The printer at the end of its line, with whatever goes wrong there: bytes in, bytes out, each at
// its time, without any input, output or clock of its own.
class Session {
 public:
  Session(Settings settings, WallClock& clock, SessionSettings session = {});
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  void Receive(std::string_view bytes, Micros now);

  // First tells the observers what the call before left to tell; then does everything that is due
  // by `now`. The bytes leave before the line is hung up or the power goes. Throws MemoryFailure
  // when the fiscal memory cannot keep what a command did; nothing may be sent after that.
  Output Advance(Micros now);

  // When Advance has something to do next, if nothing arrives before. At once when there is
  // something to tell.
  std::optional<Micros> NextDue() const;

  // The observer must outlive the session or be detached; not from within its own calls.
  void Attach(Observer& observer);
  void Detach(Observer& observer);

  // What is left to tell, now; for the end of a program.
  void Tell();

  // Somebody changed the printer or the faults by hand: paper that this printed and the change
  // itself are told with the next call.
  void Touched();

  // Lets the printer see what time it is, for who looks at it between two commands.
  void LookAtClock() { printer_.SetTime(clock_.LocalSeconds()); }

  // Another host is at the other end: what is on its way either way is gone.
  void NewHost();

  // Off and on again: what was on the line is gone, the rest is as the fiscal memory has it.
  void PowerCycle();

  Printer& GetPrinter() { return printer_; }
  const Printer& GetPrinter() const { return printer_; }
  FaultPlan& Faults() { return faults_; }
  const FaultPlan& Faults() const { return faults_; }

  // What is known of the host, and the time that it is told in.
  const HostSigns& Signs() const { return signs_; }
  std::int64_t LocalSeconds() { return clock_.LocalSeconds(); }

  // Whether the host has confirmed the last answer.
  bool Acknowledged() const { return line_.Acknowledged(); }

 private:
  using News = std::variant<PaperLine, Receipt, Exchange>;

  void Gather();
  void SwitchOn();

  WallClock& clock_;
  Printer printer_;
  FaultPlan faults_;
  Line line_;
  std::vector<Observer*> observers_;
  std::vector<News> news_;
  bool changed_ = false;
  std::optional<Micros> off_until_;
  HostSigns signs_;
  unsigned heard_ = 0;  // what of its bytes made sense
  Micros now_{};        // the last that anybody said
};

}  // namespace impresora
