#pragma once

#include <cstdint>

namespace kestra {

// The platform's component system, as the library's entry points answer it.
std::int32_t RegisterComponents();
std::int32_t UnregisterComponents();
std::int32_t ComponentFactory(const void* class_id, const void* interface_id, void** object);

// True while an object that the platform made for a host is alive.
bool ComponentsInUse();

}  // namespace kestra
