#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/json.hpp"
#include "base/problem.hpp"

namespace puerta {

// Whom to tell what happened: the "mqtt" of the door's configuration.
struct OutboxSettings {
  std::string host{};
  int port = 1883;
  std::string prefix = "kestra";
  std::string shop{};       // names this door among all of the chain
  std::string client_id{};  // "": one of its own for each start
  std::string user{};
  std::string password_file{};  // read at each connection, so that it may be changed
  bool tls = false;
  std::string authority_file{};  // "": the system's
  std::string certificate_file{};
  std::string key_file{};
  // A broker without anybody who listens would take a document and forget it: it waits then.
  bool waits_for_listener = true;
  // For brokers that acknowledge before they have it on a disk: a letter is kept until the far end says
  // that it has it.
  bool waits_for_receipt = false;
};

// Errors' pointers begin with `at`.
OutboxSettings ReadOutboxSettings(const Json& json, std::string_view at,
                                  std::vector<FieldError>& errors);

}  // namespace puerta
