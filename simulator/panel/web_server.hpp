#pragma once

#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "panel/gate.hpp"
#include "panel/http.hpp"
#include "panel/workers.hpp"

namespace impresora {

// The door of the panel: reads each request's head itself, with limits, refuses what it does not
// like and hands on the rest. One request per connection.
class WebServer {
 public:
  // Answers a request, whatever it is, on any thread.
  using Handler = std::function<void(const Request&, Response&)>;

  // Takes the address; throws std::runtime_error when it cannot be had.
  WebServer(const DoorSettings& settings, Handler handler);
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;
  ~WebServer();

  // Begins to serve, on threads of its own.
  void Start();
  void Stop();

  const OwnAddress& Own() const { return own_; }

 private:
  void Welcome(const std::shared_ptr<Connection>& connection);
  void Serve(Connection& connection) const;
  bool Answer(Connection& connection) const;
  bool AnswerRequest(Connection& connection, const Head& head) const;

  Door door_;
  OwnAddress own_;
  Handler handler_;
  Workers workers_;
  std::thread thread_;
};

}  // namespace impresora
