#include "outbox/outbox.hpp"

#include <pthread.h>

#include <condition_variable>
#include <csignal>
#include <mutex>
#include <thread>
#include <utility>

#include "outbox/mosquitto_broker.hpp"

namespace puerta {
namespace {

// Outlives the outbox where it has to: a thread that is still reaching for a broker that does not answer
// is left behind when the door closes.
struct Shared {
  Shared(const OutboxSettings& settings, const std::string& path, Courier::Log told)
      : log(std::move(told)),
        box(path),
        broker(MakeBroker(settings)),
        courier(settings, box, *broker, [this](const std::string& line) { Tell(line); }) {}

  // Whoever closes the door takes the log along.
  void Tell(const std::string& line) {
    const std::scoped_lock lock(mutex);
    if (!ends) log(line);
  }

  Courier::Log log;

  LetterBox box;
  std::unique_ptr<CallableBroker> broker;
  Courier courier;
  std::mutex mutex{};
  std::condition_variable ended_changed{};
  OutboxState state{};
  bool ends = false;
  bool ended = false;
};

constexpr std::chrono::seconds kFarewell{2};

void Carry(const std::shared_ptr<Shared>& shared) {
  // A broker that hangs up is no reason to die.
  sigset_t pipe_signal;
  sigemptyset(&pipe_signal);
  sigaddset(&pipe_signal, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &pipe_signal, nullptr);
  for (;;) {
    {
      const std::scoped_lock lock(shared->mutex);
      shared->state = shared->courier.State();
      if (shared->ends) break;
    }
    shared->courier.Round();
  }
  const std::scoped_lock lock(shared->mutex);
  shared->ended = true;
  shared->ended_changed.notify_all();
}

class Thread : public Outbox {
 public:
  explicit Thread(std::shared_ptr<Shared> shared)
      : shared_(std::move(shared)), thread_(Carry, shared_) {}
  ~Thread() override {
    std::unique_lock lock(shared_->mutex);
    shared_->ends = true;
    shared_->broker->Call();
    const bool ended =
        shared_->ended_changed.wait_for(lock, kFarewell, [&] { return shared_->ended; });
    lock.unlock();
    if (ended) {
      thread_.join();
    } else {
      thread_.detach();
    }
  }

  void Nudge() override { shared_->broker->Call(); }

  OutboxState State() const override {
    const std::scoped_lock lock(shared_->mutex);
    return shared_->state;
  }

 private:
  std::shared_ptr<Shared> shared_;
  std::thread thread_;
};

}  // namespace

bool OutboxIsBuilt() {
  return true;
}

std::unique_ptr<Outbox> StartOutbox(const OutboxSettings& settings, const std::string& path,
                                    Courier::Log log) {
  return std::make_unique<Thread>(std::make_shared<Shared>(settings, path, std::move(log)));
}

}  // namespace puerta
