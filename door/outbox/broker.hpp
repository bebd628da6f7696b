#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace puerta {

enum class Sign { kConnected, kLost, kAcknowledged, kReceived };

// What came from the broker. `refused` of an acknowledgement: it has not taken the letter.
struct Happening {
  Sign sign = Sign::kLost;
  int letter = 0;
  bool refused = false;
  bool nobody_listens = false;
  std::string words{};  // of what went wrong, for a person; of kReceived, what came
};

// The connection to a broker, as the courier needs it: the world, which a test replaces.
class Broker {
 public:
  Broker() = default;
  Broker(const Broker&) = delete;
  Broker& operator=(const Broker&) = delete;
  virtual ~Broker() = default;

  // Tries a new connection and forgets all about the last one. Whether it was had is told by Wait.
  virtual void Connect() = 0;
  virtual void Disconnect() = 0;

  // The number under which it will be acknowledged; 0 when it cannot be sent.
  virtual int Send(const std::string& topic, const std::string& payload) = 0;

  // What comes under it is told as kReceived.
  virtual void Subscribe(const std::string& topic) = 0;

  // Until something comes, somebody calls, or the time is over.
  virtual std::vector<Happening> Wait(std::chrono::milliseconds most) = 0;

  // Somewhere in the second half of it: thousands of doors whose broker comes back do not come at once.
  virtual std::chrono::milliseconds Spread(std::chrono::milliseconds pause) = 0;

  // A time that nobody sets.
  virtual std::chrono::milliseconds Now() = 0;
};

}  // namespace puerta
