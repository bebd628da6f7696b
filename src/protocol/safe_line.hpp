#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "state/causes.hpp"

namespace kestra {

struct Library;
class SerialPort;

// A frame under its number, without its checksum, and what its answer must begin with.
struct NumberedFrame {
  std::string packet;
  std::string header;
};

// Takes the next sequence number for the command.
NumberedFrame NumberFrame(Library& library, std::string_view command);

// Opens the device for an exchange. One that another program holds is waited for as long as EsperaPuerto
// says. Throws Failure.
void OpenPort(Library& library);

// What a wait for an answer brought.
struct Reception {
  std::string answer;          // legal and the frame's own, or empty
  Cause cause = Cause::kNone;  // why it is empty
};

// The device during one exchange of the safe mode. A failure of the port closes it and is told as a cause;
// whoever wants to go on opens it again.
class SafeLine {
 public:
  explicit SafeLine(Library& library) : library_(library) {}
  SafeLine(const SafeLine&) = delete;
  SafeLine& operator=(const SafeLine&) = delete;
  ~SafeLine() { Close(); }

  // Opens the device unless this line has it open. Closed while a frame is unanswered, it takes that back as
  // far as it has not gone.
  bool Open();
  void Close() noexcept;

  // Drops what has arrived and writes the frame, with its lines in the log.
  bool Write(const NumberedFrame& frame);

  // Five seconds from now or from the last busy byte, and 15 minutes at most; less after damage, once nothing
  // more comes.
  Reception Wait(const NumberedFrame& frame);

  void Acknowledge() noexcept;

  // Waits until nothing comes any more, and drops what came.
  bool Rest();

  [[nodiscard]] bool IsOpen() const { return open_; }

  // Why the last of these failed, and whether the port has broken down since the line was made.
  [[nodiscard]] Cause Why() const { return why_; }
  [[nodiscard]] bool WasLost() const { return lost_; }

  // When the printer was last heard to be at work: seconds as the clock's Elapsed.
  [[nodiscard]] std::optional<double> LastBusy() const { return last_busy_; }

 private:
  template <typename Action>
  bool OnPort(Action action);
  SerialPort& Port();
  bool TakeArrived(std::string& received);
  double Now();

  Library& library_;
  bool open_ = false;
  bool lost_ = false;
  bool unanswered_ = false;  // a frame may be on its way still
  Cause why_ = Cause::kNone;
  std::optional<double> last_busy_;
};

}  // namespace kestra
