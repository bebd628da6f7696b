#pragma once

#include <memory>
#include <string>

#include "machine/settings.hpp"
#include "memory/store.hpp"

namespace impresora {

// The fiscal memory in an SQLite file. A new one is made for this printer; one of another printer,
// of another version, in use, damaged or not writable is left as it is and told by MemoryFailure.
std::unique_ptr<Store> OpenMemory(const std::string& path, const Settings& settings);

}  // namespace impresora
