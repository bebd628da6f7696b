#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace impresora {

// What the printer wants to know of its cable, told on the loop's thread.
struct LineEvents {
  std::function<void(std::string_view)> arrived;  // bytes of the host
  std::function<void()> new_host;  // from here on; nothing of the former one's is for this one
};

// The printer's end of a cable.
class Endpoint {
 public:
  virtual ~Endpoint() = default;

  // What a host opens to get here, as the program's first line tells it.
  virtual std::string Port() const = 0;

  // Begins to listen. The endpoint lives as long as the loop runs.
  virtual void Start(LineEvents events) = 0;

  // Never waits: what the line cannot take is lost, as on a wire that nobody listens to.
  virtual void Write(std::string_view bytes) = 0;

  // The speed that the host has set on its side, or 0 where a line has none or nobody can tell.
  virtual int HostBaud() const { return 0; }

  // Another program takes the port, or leaves it; false on a line where that cannot be.
  virtual bool Occupy(bool /*by_another*/) { return false; }

  // Pulls the plug on the present host and puts it in again for the next.
  virtual void HangUp() = 0;
};

}  // namespace impresora
