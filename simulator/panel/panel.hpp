#pragma once

#include <functional>
#include <memory>
#include <string>

#include "line/till.hpp"

namespace impresora {

class Session;

struct PanelSettings {
  std::string host = "127.0.0.1";  // nobody but this machine unless told otherwise
  int port = 0;                    // 0: any that is free
  bool reuse_port = false;         // right after its last owner, where that takes it from nobody
};

// What the panel needs of the program around it. A function given to `post` is run on the thread
// that the session lives on. The others are called there: `power_cycle` switches the printer off and
// on, `line` tells what is known of the line, and `occupy` has another program take the port or leave
// it, and returns whether that can be.
struct PanelHost {
  Session& session;
  std::function<void(std::function<void()>)> post;
  std::function<void()> power_cycle;
  std::function<HostLine()> line = [] { return HostLine(); };
  std::function<bool(bool)> occupy = [](bool) { return false; };
};

// A page and an HTTP interface to look at a printer and to work on it while it runs. It is made and
// destroyed on the session's thread, and serves from threads of its own in between.
class Panel {
 public:
  // Throws std::runtime_error when the address cannot be had.
  Panel(const PanelSettings& settings, PanelHost host);
  Panel(const Panel&) = delete;
  Panel& operator=(const Panel&) = delete;
  ~Panel();

  // "http://127.0.0.1:8080/".
  std::string Url() const;

  // What whoever started it should know, or nothing.
  std::string Warning() const;

 private:
  class Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace impresora
