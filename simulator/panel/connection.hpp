#pragma once

#include <httplib.h>

#include <chrono>
#include <optional>
#include <string>

namespace impresora {

// One request's socket. All of the request has to be here by one deadline, so that nobody holds a
// place by sending slowly; each write has a time of its own.
class Connection : public httplib::Stream {
 public:
  enum class HeadState { kWhole, kLate, kTooLarge, kGone };

  explicit Connection(int fd);
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() override;

  // The bytes through the first empty line; what came behind them stays for read().
  HeadState ReadHead(std::string& head, std::size_t largest);

  // read() begins with these.
  void PutBack(std::string_view bytes) { waiting_.insert(0, bytes); }

  // The other side is done with us or we with it: nothing more is to be sent, and what still comes
  // is let in for a moment, or the answer might get lost with it.
  void Finish(std::chrono::milliseconds moment);

  bool is_readable() const override;
  bool is_writable() const override;
  ssize_t read(char* data, std::size_t size) override;
  ssize_t write(const char* data, std::size_t size) override;
  void get_remote_ip_and_port(std::string& ip, int& port) const override;
  void get_local_ip_and_port(std::string& ip, int& port) const override;
  socket_t socket() const override { return fd_; }

  using httplib::Stream::write;

 private:
  using Clock = std::chrono::steady_clock;

  bool Wait(short events, Clock::time_point until) const;
  ssize_t Receive(char* data, std::size_t size);

  int fd_;
  Clock::time_point deadline_;
  std::string waiting_;
};

}  // namespace impresora
