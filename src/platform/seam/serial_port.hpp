#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kestra {

// How the port is set up once, before it is first opened.
struct PortSettings {
  std::int16_t CommPort = 0;     // 1..256, unless `device` names a path
  std::string Settings;          // "9600,N,8,1"
  std::int16_t Handshaking = 0;  // none
  std::int16_t InputMode = 0;    // text
  std::string device;            // replaces the device of CommPort when not empty
};

// A serial line with a receive buffer of its own. Failures of the line throw Failure.
class SerialPort {
 public:
  SerialPort() = default;
  SerialPort(const SerialPort&) = delete;
  SerialPort& operator=(const SerialPort&) = delete;
  virtual ~SerialPort() = default;

  [[nodiscard]] virtual bool PortOpen() const = 0;

  // True opens the device for this process alone; what it still held is dropped before the first write
  // or look. False closes it.
  virtual void PortOpen(bool open) = 0;

  // Closes it. What the system has taken and not passed on yet goes nowhere, if there can be such a thing.
  virtual void Abandon() { PortOpen(false); }

  // Writes all bytes; returns once the system has taken them.
  virtual void Output(std::string_view bytes) = 0;

  // Count of received bytes. When nothing has come since the last look it lets the processor go for
  // a short while first, so that a loop around it costs nothing.
  virtual std::size_t InBufferCount() = 0;

  // Drops everything received so far (InBufferCount := 0).
  virtual void DiscardInput() = 0;

  // Reads and removes all bytes received up to the last look.
  virtual std::string Input() = 0;

  // The bytes that Input would return, left where they are.
  [[nodiscard]] virtual std::string_view Waiting() const = 0;
};

// The platform's own: a closed port on a device of this machine, and its name of the serial port with
// that number, from 1.
std::unique_ptr<SerialPort> MakeDevicePort(const std::string& device,
                                           std::optional<std::int32_t> speed);
std::string DeviceOfNumber(std::int32_t number);

}  // namespace kestra
