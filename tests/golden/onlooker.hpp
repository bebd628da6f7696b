#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/seam/platform.hpp"

namespace kestra {
class FakePlatform;
}

namespace kestra::golden {

// Looks on while a case is played, and may meddle with the world that the case is played in.
class Onlooker {
 public:
  Onlooker() = default;
  Onlooker(const Onlooker&) = delete;
  Onlooker& operator=(const Onlooker&) = delete;
  virtual ~Onlooker() = default;

  // What the library is given for its world: the case's own, or something around it. The library
  // keeps it until the next world takes its place.
  virtual std::unique_ptr<Platform> Surround(std::unique_ptr<FakePlatform> world) = 0;

  // Nothing but the call itself runs between these two.
  virtual void BeforeCall(std::string_view name) = 0;
  virtual void AfterCall(std::string_view name, std::int32_t result) = 0;
};

}  // namespace kestra::golden
