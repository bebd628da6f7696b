#pragma once

#include <memory>

#include "outbox/broker.hpp"
#include "outbox/settings.hpp"

namespace puerta {

// A broker that can be called from another thread while it waits.
class CallableBroker : public Broker {
 public:
  virtual void Call() = 0;
};

std::unique_ptr<CallableBroker> MakeBroker(const OutboxSettings& settings);

}  // namespace puerta
