#pragma once

#include <ostream>
#include <string_view>

namespace kestra::tool {

// Where a command tells what it found: words for people, or JSON for programs, in UTF-8. It never asks.
class Console {
 public:
  Console(std::ostream& out, std::ostream& error, bool json)
      : out_(out), error_(error), json_(json) {}

  // Whether JSON is wanted: then nothing else goes to the output.
  [[nodiscard]] bool WantsJson() const { return json_; }

  std::ostream& Out() { return out_; }
  std::ostream& Error() { return error_; }
  void Line(std::string_view text = {}) { out_ << text << '\n'; }
  void Complain(std::string_view text) { error_ << "kestra: " << text << '\n'; }

 private:
  std::ostream& out_;
  std::ostream& error_;
  bool json_;
};

}  // namespace kestra::tool
