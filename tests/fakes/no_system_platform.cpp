// Test programs that live on fakes compile this file in place of a platform.
#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>

#include "fakes/components.hpp"
#include "platform/seam/host.hpp"
#include "platform/seam/platform.hpp"

namespace kestra {

std::unique_ptr<Platform> MakeSystemPlatform() {
  throw std::logic_error("a test must bring its own world");
}

// No component system; a test says whether an object of it is alive.
std::int32_t RegisterComponents() {
  return -1;
}

std::int32_t UnregisterComponents() {
  return -1;
}

std::int32_t InstallComponents(bool /*install*/, const void* /*part*/) {
  return -1;
}

std::int32_t ComponentFactory(const void* /*class_id*/, const void* /*interface_id*/,
                              void** object) {
  if (object != nullptr) *object = nullptr;
  return -1;
}

bool ComponentsInUse() {
  return fake_components_in_use;
}

// The memory of a test is where it says.
std::size_t ReadHostMemory(void* to, const void* from, std::size_t count) noexcept {
  std::memcpy(to, from, count);
  return count;
}

std::size_t WriteHostMemory(void* to, const void* from, std::size_t count) noexcept {
  std::memcpy(to, from, count);
  return count;
}

}  // namespace kestra
