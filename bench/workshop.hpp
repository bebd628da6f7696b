#pragma once

#include <string>

namespace kestra::bench {

class Printer;

// The library, started on a printer's line: in a directory of the bench's own, which lasts as long
// as the process, with the log off and an operator who declines everything and says so on standard
// error. `more_keys` are lines of its Fiscal.ini. Throws std::runtime_error when it does not start.
class Workshop {
 public:
  explicit Workshop(const Printer& printer, const std::string& more_keys = {});
  Workshop(const Workshop&) = delete;
  Workshop& operator=(const Workshop&) = delete;
  ~Workshop();
};

}  // namespace kestra::bench
