#include "platform/seam/components.hpp"

#include "platform/seam/host_memory.hpp"

namespace kestra {
namespace {

// "Not implemented", in the words of the component system that is not here.
constexpr auto kNotImplemented = static_cast<std::int32_t>(0x80004001u);

}  // namespace

std::int32_t RegisterComponents() {
  return kNotImplemented;
}

std::int32_t UnregisterComponents() {
  return kNotImplemented;
}

std::int32_t ComponentFactory(const void* /*class_id*/, const void* /*interface_id*/,
                              void** object) {
  const void* const none = nullptr;
  if (object != nullptr) WriteHostMemory(object, &none, sizeof none);
  return kNotImplemented;
}

bool ComponentsInUse() {
  return false;
}

}  // namespace kestra
