#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace impresora {

struct PanelEvent {
  std::uint64_t id;  // 1, 2, 3...
  std::string name;
  std::string data;  // JSON on one line
};

// What happened lately, from the printer's thread to those that tell browsers of it. Every method
// may be called from any thread.
class Feed {
 public:
  // Where a listener stands: the last event that it knows and the last state.
  struct Place {
    std::uint64_t id = 0;
    std::uint64_t state = 0;
  };

  struct News {
    std::vector<PanelEvent> events;
    bool gap = false;  // some are no longer kept
    Place place;
  };

  void Publish(std::string name, std::string data);
  void StateChanged();

  Place Now() const;

  // What came after `place`; waits for something to come, at most as long as told.
  News Wait(Place place, std::chrono::milliseconds longest);

  // Ends every wait, for good.
  void Close();
  bool Closed() const;

  // A place among the listeners, while there are any left.
  bool Enter();
  void Leave();

 private:
  bool HasNews(const Place& place) const { return place.id != last_ || place.state != state_; }

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<PanelEvent> events_;
  std::uint64_t last_ = 0;
  std::uint64_t state_ = 1;
  int listeners_ = 0;
  bool closed_ = false;
};

}  // namespace impresora
