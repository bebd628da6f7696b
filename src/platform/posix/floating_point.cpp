#include "platform/seam/host.hpp"

namespace kestra {

FloatingPoint::FloatingPoint() noexcept {
  std::feholdexcept(&hosts_);
  std::fesetenv(FE_DFL_ENV);
}

FloatingPoint::~FloatingPoint() {
  std::fesetenv(&hosts_);
}

}  // namespace kestra
