// The line to the door: JSON, one a line.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/json.hpp"

namespace puerta {

class Link {
 public:
  Link() = default;
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;
  virtual ~Link() = default;

  // A door that is gone hears nothing; IsGone tells.
  virtual void Tell(const char* name, Json value) = 0;
  // Waits. Nothing when the door is gone, or says what is no JSON.
  virtual std::optional<Json> Hear() = 0;
  virtual bool IsGone() = 0;
};

// To a door on this machine; null when it does not answer.
std::unique_ptr<Link> CallDoor(const std::string& port, const std::string& token);

}  // namespace puerta
