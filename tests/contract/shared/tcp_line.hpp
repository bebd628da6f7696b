#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "contract/shared/serial_line.hpp"
#include "platform/shared/ports.hpp"

namespace kestra {

// A device server with the test inside: the port calls, the test answers. What is sent while nobody has
// called goes nowhere.
class TcpLine : public SerialLine {
 public:
  // Where it is called; nobody answers at an address that this machine lacks.
  explicit TcpLine(const std::string& host = "127.0.0.1");
  TcpLine(const TcpLine&) = delete;
  TcpLine& operator=(const TcpLine&) = delete;
  ~TcpLine() override;

  std::unique_ptr<SerialPort> MakePort() override { return MakePort({}); }
  [[nodiscard]] std::unique_ptr<SerialPort> MakePort(const PortPatience& patience) const;
  void Send(std::string_view bytes) override;
  std::string Receive(std::size_t count) override;
  // The server listens no more, or listens again.
  void Occupy(bool taken) override;
  void Unplug() override;

  // Ends the present call and takes the next; without manners, by a reset.
  void HangUp();
  void Reset();

  // Leaves callers ringing from now on.
  void Neglect();

  // 0 when the machine lacks the address.
  [[nodiscard]] std::uint16_t Number() const { return number_; }
  // "tcp:127.0.0.1:40123"
  [[nodiscard]] std::string Device() const { return DeviceAt(host_); }
  // The same at another name of the machine.
  [[nodiscard]] std::string DeviceAt(const std::string& host) const {
    return "tcp:" + host + ":" + std::to_string(number_);
  }

 private:
  struct FarEnd;

  std::string host_;
  std::uint16_t number_ = 0;
  std::unique_ptr<FarEnd> far_end_;
};

// A port at that address; it must be a good one.
std::unique_ptr<SerialPort> MakeTcpPort(const std::string& device,
                                        const PortPatience& patience = {});

}  // namespace kestra
