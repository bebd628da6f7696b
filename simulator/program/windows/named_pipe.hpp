#pragma once

#include <array>
#include <asio.hpp>
#include <string>
#include <string_view>

#include "program/endpoint.hpp"
#include "program/write_queue.hpp"

namespace impresora {

// A cable over a named pipe of Windows, with one host at a time.
class NamedPipe : public Endpoint {
 public:
  // `name` with or without \\.\pipe\ before it. Throws std::system_error when there is another pipe
  // of that name.
  NamedPipe(asio::io_context& loop, const std::string& name);

  std::string Port() const override { return path_; }
  void Start(LineEvents events) override;
  void Write(std::string_view bytes) override;
  void HangUp() override;

 private:
  void Await();
  void Welcome();
  void Read();

  std::string path_;
  asio::windows::stream_handle pipe_;
  WriteQueue<asio::windows::stream_handle> leaving_;
  LineEvents events_;
  std::array<char, 4096> buffer_{};
  bool there_ = false;  // a host is
  unsigned visit_ = 0;  // counts the hosts that have left
};

}  // namespace impresora
