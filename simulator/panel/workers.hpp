#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace impresora {

// A fixed number of threads with a short queue before them.
class Workers {
 public:
  Workers(std::size_t threads, std::size_t places);
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;
  ~Workers();

  // False when there is no room for it.
  bool Take(std::function<void()> task);

  // Nothing more is taken; what was is still done.
  void End();

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
