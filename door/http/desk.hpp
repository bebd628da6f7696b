// A request's whole way, without sockets: gate, key, route, answer; and what of it is kept in the audit log.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

#include "base/clock.hpp"
#include "http/api.hpp"
#include "http/audit.hpp"
#include "http/gate.hpp"
#include "http/keys.hpp"
#include "http/message.hpp"

namespace puerta {

class Desk {
 public:
  Desk(Api& api, const Gate& gate, const KeyRing& keys, Audit& audit, const Clock& clock)
      : api_(api), gate_(gate), keys_(keys), audit_(audit), clock_(clock) {}

  // Answers once, now or later, and never throws.
  void Receive(HttpRequest request, const Respond& respond);

 private:
  void Admit(Visit visit, const Respond& respond);
  void Serve(const Route& route, Visit visit, const Respond& respond);
  bool MayTry(const std::string& peer);
  void Refuse(const Visit& visit, const Problem& problem, const Respond& respond);

  Api& api_;
  const Gate& gate_;
  const KeyRing& keys_;
  Audit& audit_;
  const Clock& clock_;
  std::map<std::string, int> wrong_keys_;  // by address, of this minute
  std::int64_t minute_ = 0;
};

}  // namespace puerta
