#pragma once

#include <memory>
#include <ostream>
#include <string>

#include "log/view.hpp"

namespace kestra::tool {

// What a log came to.
struct Totals {
  std::size_t frames = 0;
  std::size_t failures = 0;
  std::size_t damaged = 0;  // lines
  std::size_t shown = 0;    // entries
  unsigned documents = 0;
};

// Where the entries of a log go, one after the other.
class Sheet {
 public:
  virtual ~Sheet() = default;
  virtual void Add(const View& view) = 0;
  virtual void End(const Totals& totals) = 0;
};

// For a terminal, so many columns wide; with colours if wanted.
std::unique_ptr<Sheet> MakeTextSheet(std::ostream& out, std::size_t width, bool colours);

// An object on each line.
std::unique_ptr<Sheet> MakeJsonSheet(std::ostream& out);

// One page that needs nothing else. `name`: of the log; `masked`: whether the customers' data are hidden.
std::unique_ptr<Sheet> MakeHtmlSheet(std::ostream& out, const std::string& name, bool masked);

// "12 tramas, 1 falla, 3 comprobantes, 2 líneas dañadas".
std::string TotalsWords(const Totals& totals);

}  // namespace kestra::tool
