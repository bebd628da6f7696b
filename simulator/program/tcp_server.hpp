#pragma once

#include <array>
#include <asio.hpp>
#include <string>
#include <string_view>

#include "program/endpoint.hpp"
#include "program/tcp_address.hpp"

namespace impresora {

// A cable over TCP, with one host at a time: whoever comes while another is there is turned away.
class TcpServer : public Endpoint {
 public:
  // Throws CannotOpen when the address cannot be had.
  TcpServer(asio::io_context& loop, const TcpAddress& address);

  std::string Port() const override;
  void Start(LineEvents events) override;
  void Write(std::string_view bytes) override;
  void HangUp() override;
  bool Occupy(bool by_another) override;

 private:
  void Open(const asio::ip::tcp::endpoint& endpoint);
  void Accept();
  void Welcome(asio::ip::tcp::socket host);
  void Listen();
  void Drain();

  asio::ip::tcp::acceptor acceptor_;
  asio::ip::tcp::socket host_;
  asio::steady_timer pause_;
  LineEvents events_;
  bool occupied_ = false;
  unsigned visit_ = 0;  // counts the hosts
  std::array<char, 4096> buffer_{};
};

}  // namespace impresora
