#pragma once

#include <httplib.h>

#include <optional>
#include <thread>

#include "panel/connection.hpp"
#include "panel/gate.hpp"

namespace impresora {

// The door of the panel: reads each request's head itself, with limits, refuses what it does not
// like and hands on the rest. One request per connection.
class WebServer : public httplib::Server {
 public:
  WebServer();
  ~WebServer() override;

  // Takes the address; throws std::runtime_error when it cannot be had. Port 0 is any.
  void Bind(const std::string& host, int port);

  // Begins to serve, on threads of its own; throws std::runtime_error when it cannot.
  void Start();
  void Stop();

  const OwnAddress& Own() const { return *own_; }

  // {"error": words}
  static std::string ErrorBody(std::string_view words);

 private:
  bool process_and_close_socket(socket_t fd) override;
  void Refuse(Connection& connection, const Refusal& refusal);
  std::optional<Refusal> Admit(Connection& connection, bool& gone);

  std::optional<OwnAddress> own_;
  std::thread thread_;
};

}  // namespace impresora
