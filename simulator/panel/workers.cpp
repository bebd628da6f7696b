#include "panel/workers.hpp"

#include <utility>

namespace impresora {

Workers::Workers(std::size_t threads, std::size_t places) : places_(places) {
  for (std::size_t i = 0; i < threads; ++i) threads_.emplace_back([this] { Work(); });
}

Workers::~Workers() {
  End();
}

bool Workers::Take(std::function<void()> task) {
  const std::lock_guard lock(mutex_);
  if (tasks_.size() >= places_ || ended_) return false;
  tasks_.push_back(std::move(task));
  changed_.notify_one();
  return true;
}

void Workers::End() {
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
  }
  changed_.notify_all();
  for (std::thread& thread : threads_) thread.join();
  threads_.clear();
}

// What is queued is still done: each of these tasks owns a socket.
void Workers::Work() {
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return ended_ || !tasks_.empty(); });
    if (tasks_.empty()) return;
    {
      const std::function<void()> task = std::move(tasks_.front());
      tasks_.pop_front();
      lock.unlock();
      task();
    }
    lock.lock();
  }
}

}  // namespace impresora
