#pragma once

#include <cstdint>

#include "line/line.hpp"

namespace impresora {

// The machine's own clock, in its time zone.
class SystemClock : public WallClock {
 public:
  std::int64_t LocalSeconds() override;
};

}  // namespace impresora
