#pragma once

#include <memory>
#include <string>
#include <vector>

#include "machine/settings.hpp"

namespace kestra::tool {

// A virtual printer within this program, on a thread of its own, at a port of TCP.
class OwnPrinter {
 public:
  explicit OwnPrinter(const impresora::Settings& settings);
  OwnPrinter(const OwnPrinter&) = delete;
  OwnPrinter& operator=(const OwnPrinter&) = delete;
  ~OwnPrinter();

  // What goes behind ImpresoraDispositivo=.
  [[nodiscard]] std::string Port() const;

  // The lines printed since it was asked last.
  std::vector<std::string> TakePaper();

 private:
  class Works;
  std::unique_ptr<Works> works_;
};

}  // namespace kestra::tool
