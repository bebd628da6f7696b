#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/seam/serial_port.hpp"
#include "platform/seam/socket.hpp"
#include "platform/shared/ports.hpp"

namespace kestra {

// Does a device's name tell of a network ("tcp:...") rather than of this machine's own devices?
bool IsTcp(std::string_view device);

// "tcp:HOST:PORT" or "tcp:[ADDRESS]:PORT", the port from 1 to 65535; nothing when it is neither.
std::optional<TcpAddress> TcpAddressOf(std::string_view device);

// A serial line behind a network: a device server in raw mode, a virtual printer. Opening connects,
// closing hangs up.
class TcpPort : public SerialPort {
 public:
  // `device` is the name that failures tell.
  TcpPort(std::string device, TcpAddress address, PortPatience patience = {});
  TcpPort(const TcpPort&) = delete;
  TcpPort& operator=(const TcpPort&) = delete;
  ~TcpPort() override;

  [[nodiscard]] bool PortOpen() const override { return connection_ != nullptr; }
  void PortOpen(bool open) override;
  void Abandon() override;
  void Output(std::string_view bytes) override;
  std::size_t InBufferCount() override;
  void DiscardInput() override;
  std::string Input() override;
  [[nodiscard]] std::string_view Waiting() const override { return received_; }

 private:
  struct Connection {
    Network network;
    Socket socket;
    SocketResult end;    // what it came to, when it did
    bool heard = false;  // the far end has sent something
    bool stale = true;   // opened, and what came before the first use not dropped yet
  };

  void Open();
  void Close();
  void Dial(Socket& socket);
  [[nodiscard]] std::vector<SocketAddress> Addresses() const;
  void Farewell() const;
  void RequireOpen() const;
  void RequireAlive() const;
  void DropStale();
  std::size_t Move(const SocketResult& result);
  std::string_view Take(char* bytes, std::size_t room);
  [[noreturn]] void Throw(const SocketResult& result, PortFault unexplained) const;

  std::string device_;
  TcpAddress address_;
  PortPatience patience_;
  SocketAddress last_;  // where the host was found last
  std::unique_ptr<Connection> connection_;
  std::string received_;
};

}  // namespace kestra
