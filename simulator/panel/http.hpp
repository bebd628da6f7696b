#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace impresora {

// HTTP and its sockets, in words of the panel's own: the library behind them is http.cpp's alone.

struct Request {
  std::string method;
  std::string path;
  std::string query;                         // what stands behind the question mark
  std::optional<std::string> last_event_id;  // of a listener that comes back
  std::string body;
};

// Whoever hears of what happens, for as long as it is there.
class Listener {
 public:
  virtual ~Listener() = default;
  virtual bool IsThere() = 0;
  virtual bool Tell(std::string_view text) = 0;  // false when it could not be told
};

struct Response {
  int status = 200;
  std::string type;
  std::string body;
  std::string allow;                      // the methods that there are, for who took another
  std::function<void(Listener&)> stream;  // in place of a body: goes on until it returns
};

// A head that the gate has let in, and all of its body; nothing when they are no request.
std::optional<Request> ReadRequest(std::string_view bytes);

// The answer through its last byte; of a stream, what goes before its first piece.
std::string ToBytes(const Response& response, bool without_body);

// A piece of a stream; an empty one is its end.
std::string Chunk(std::string_view text);

// {"error": words}
std::string ErrorBody(std::string_view words);

// One request's socket. All of the request has to be here by one deadline, so that nobody holds a
// place by sending slowly; each write has a time of its own.
class Connection : public Listener {
 public:
  enum class State { kWhole, kLate, kTooLarge, kGone };

  Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() override;

  // The bytes through the first empty line. The deadline begins here.
  State ReadHead(std::string& head, std::size_t largest);

  // As many bytes behind them.
  State ReadBody(std::string& body, std::size_t size);

  bool Write(std::string_view bytes);

  // The other side is done with us or we with it: nothing more is to be sent, and what still comes
  // is let in for a moment, or the answer might get lost with it.
  void Finish(std::chrono::milliseconds moment);

  // False as well when the other side will send nothing more.
  bool IsThere() override;
  bool Tell(std::string_view text) override { return Write(Chunk(text)); }

 private:
  friend class Door;
  class Socket;
  State Receive();

  std::unique_ptr<Socket> socket_;
  std::chrono::steady_clock::time_point deadline_;
  std::string waiting_;
};

struct DoorSettings {
  std::string host;
  int port = 0;             // 0: any that is free
  bool reuse_port = false;  // right after its last owner, where that takes it from nobody
};

// Where connections come in.
class Door {
 public:
  // Takes the address; throws std::runtime_error when it cannot be had.
  explicit Door(const DoorSettings& settings);
  Door(const Door&) = delete;
  Door& operator=(const Door&) = delete;
  ~Door();

  int Port() const;

  // Hands over each who comes, until somebody on another thread closes.
  void Receive(const std::function<void(std::shared_ptr<Connection>)>& visitor);
  void Close();

 private:
  class Hinge;
  std::unique_ptr<Hinge> hinge_;
};

}  // namespace impresora
