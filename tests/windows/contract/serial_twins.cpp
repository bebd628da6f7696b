#include "com_line.hpp"
#include "contract/shared/tcp_line.hpp"

namespace kestra {
namespace {

template <typename Line>
std::unique_ptr<SerialLine> Make() {
  return std::make_unique<Line>();
}

}  // namespace

std::vector<SerialTwin> SerialTwins() {
  return {{.name = "Windows", .make = Make<ComLine>},
          {.name = "Tcp", .make = Make<TcpLine>, .in_use = 8015}};
}

}  // namespace kestra
