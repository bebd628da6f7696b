// The one thread that HTTP, queues and memory share.
#pragma once

#include <functional>
#include <memory>

#include "service/world.hpp"

namespace puerta {

class Loop : public Timers {
 public:
  class Inside;  // whose sockets turn with it knows more: loop_inside.hpp

  Loop();
  ~Loop() override;

  void After(std::chrono::milliseconds pause, std::function<void()> then) override;
  // Until somebody stops it. What one piece of work throws is told, and the others go on.
  void Run(const std::function<void(const char* why)>& failed);
  void Stop();                                  // from any thread
  void Linger(std::chrono::milliseconds time);  // for what was to be said last
  void StopOnSignals();

  Inside& In() { return *inside_; }

 private:
  std::unique_ptr<Inside> inside_;
};

}  // namespace puerta
