#include "com_line.hpp"

namespace kestra {

std::vector<SerialTwin> SerialTwins() {
  return {{.name = "Windows",
           .make = []() -> std::unique_ptr<SerialLine> { return std::make_unique<ComLine>(); }}};
}

}  // namespace kestra
