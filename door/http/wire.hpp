// The bytes of one connection, plain or through TLS.
#pragma once

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace puerta {

class Wire {
 public:
  using Socket = boost::asio::ip::tcp::socket;

  Wire() = default;
  Wire(const Wire&) = delete;
  Wire& operator=(const Wire&) = delete;
  virtual ~Wire() = default;

  // One of each at a time; the wire lives until all have ended.
  virtual void Open(std::function<void(bool)> done) = 0;
  virtual void Read(std::function<void(std::string_view)> done) = 0;  // empty: it has gone
  virtual void Write(std::string bytes, std::function<void(bool)> done) = 0;
  virtual Socket& Plug() = 0;

  void Close() {
    boost::system::error_code ignored;
    Plug().close(ignored);
  }
  void Finish() {
    boost::system::error_code ignored;
    Plug().shutdown(Socket::shutdown_send, ignored);
  }
};

// What does not depend on what the bytes go through.
template <class Through>
class WireThrough : public Wire {
 public:
  template <class... Arguments>
  explicit WireThrough(Arguments&&... arguments)
      : through_(std::forward<Arguments>(arguments)...) {}

  void Read(std::function<void(std::string_view)> done) override {
    through_.async_read_some(
        boost::asio::buffer(buffer_),
        [this, done = std::move(done)](boost::system::error_code error, std::size_t count) {
          done(error ? std::string_view() : std::string_view(buffer_.data(), count));
        });
  }

  void Write(std::string bytes, std::function<void(bool)> done) override {
    bytes_ = std::move(bytes);
    boost::asio::async_write(
        through_, boost::asio::buffer(bytes_),
        [done = std::move(done)](boost::system::error_code error, std::size_t) { done(!error); });
  }

 protected:
  Through& Inside() { return through_; }

 private:
  Through through_;
  std::array<char, 8192> buffer_{};
  std::string bytes_;
};

using WireMaker = std::function<std::unique_ptr<Wire>(Wire::Socket)>;

WireMaker PlainWires();

}  // namespace puerta
