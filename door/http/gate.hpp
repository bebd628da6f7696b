// Who may knock at all: by which name the door was called, from which page.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "http/message.hpp"

namespace puerta {

struct GateSettings {
  bool secure = false;  // https
  int port = 0;
  std::vector<std::string> names = {};    // by which it is known beside this machine's own
  std::vector<std::string> origins = {};  // pages of others that may ask
};

class Gate {
 public:
  explicit Gate(const GateSettings& settings);

  // Why it is turned away. A name that is not the door's is how a page elsewhere would get around its browser.
  std::optional<Problem> Refuse(const HttpRequest& request) const;
  // The answer to a browser that asks before it asks.
  std::optional<Answer> Preflight(const HttpRequest& request) const;
  // What a browser wants to see with the answer to a page of others.
  void Mark(const HttpRequest& request, Answer& answer) const;

 private:
  bool IsKnown(const std::string& origin) const { return origins_.contains(origin); }

  std::set<std::string> hosts_;
  std::set<std::string> origins_;
};

}  // namespace puerta
