#pragma once

#include <httplib.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace impresora {

// A fixed number of threads with a short queue before them. What no longer fits is run at once with
// `TurnedAway()` true, for a short word of regret.
class Workers : public httplib::TaskQueue {
 public:
  Workers(std::size_t threads, std::size_t places);
  ~Workers() override;

  void enqueue(std::function<void()> task) override;
  void shutdown() override;

  // Of the task that runs on this thread.
  static bool TurnedAway();

 private:
  void Work();

  std::size_t places_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::function<void()>> tasks_;
  bool ended_ = false;
  std::vector<std::thread> threads_;
};

}  // namespace impresora
