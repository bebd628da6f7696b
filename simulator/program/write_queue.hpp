#pragma once

#include <asio.hpp>
#include <string>
#include <string_view>
#include <utility>

namespace impresora {

// Bytes on their way into a stream that takes them at its own pace.
template <typename Stream>
class WriteQueue {
 public:
  explicit WriteQueue(Stream& stream) : stream_(stream) {}

  void Write(std::string_view bytes) {
    if (waiting_.size() + bytes.size() > kMost) return;
    waiting_ += bytes;
    if (leaving_.empty()) Next();
  }

  // Forgets what has not been handed over yet.
  void Clear() { waiting_.clear(); }

 private:
  static constexpr std::size_t kMost = 65'536;

  void Next() {
    leaving_ = std::exchange(waiting_, {});
    if (leaving_.empty()) return;
    asio::async_write(stream_, asio::buffer(leaving_), [this](asio::error_code error, std::size_t) {
      leaving_.clear();
      if (error == asio::error::operation_aborted) return;
      if (error) Clear();
      Next();
    });
  }

  Stream& stream_;
  std::string waiting_;
  std::string leaving_;
};

}  // namespace impresora
