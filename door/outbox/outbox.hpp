#pragma once

#include <functional>
#include <memory>
#include <string>

#include "outbox/courier.hpp"
#include "outbox/settings.hpp"

namespace puerta {

// A thread that carries what happened to the broker, for as long as this object lives. Its troubles are its
// own: no till waits for them.
class Outbox {
 public:
  Outbox() = default;
  Outbox(const Outbox&) = delete;
  Outbox& operator=(const Outbox&) = delete;
  virtual ~Outbox() = default;

  // Something was written that is to be published.
  virtual void Nudge() = 0;

  virtual OutboxState State() const = 0;
};

// Whether this door was built with a client of such brokers.
bool OutboxIsBuilt();

// `path` is the store's file, which has to be open; `log` is called on the outbox's thread. Throws
// std::runtime_error when it is not built, or has no memory to begin with.
std::unique_ptr<Outbox> StartOutbox(const OutboxSettings& settings, const std::string& path,
                                    Courier::Log log);

}  // namespace puerta
