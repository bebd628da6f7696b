// Connections: who is let in, how long each may take.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <string>

#include "http/desk.hpp"
#include "http/wire.hpp"
#include "service/loop.hpp"

namespace puerta {

struct ServerSettings {
  std::string address = "127.0.0.1";
  int port = 0;
  std::size_t connections = 256;
  std::size_t largest_body = 256 << 10;
  std::chrono::milliseconds request_time = std::chrono::seconds(10);
  std::chrono::milliseconds idle_time = std::chrono::seconds(60);
  std::chrono::milliseconds write_time = std::chrono::seconds(10);
};

class Server {
 public:
  // Throws std::runtime_error with words for a person. Nobody is let in before Open.
  Server(Loop& loop, const ServerSettings& settings);
  ~Server();

  int Port() const;
  void Open(Desk& desk, WireMaker wires);
  void Wake();  // there is something for those who listen
  std::size_t Count() const { return connections_.size(); }

 private:
  class Inside;
  class Connection;
  friend class Connection;

  void Accept();
  bool MakeRoom();
  bool MayListen() const;
  void Beat();

  Loop& loop_;
  ServerSettings settings_;
  std::unique_ptr<Inside> inside_;
  Desk* desk_ = nullptr;
  WireMaker wires_;
  std::list<std::shared_ptr<Connection>> connections_;  // the oldest first
};

}  // namespace puerta
