#pragma once

#include <windows.h>

#include <string>

namespace kestra {

// The file that this code is in, whoever loaded it.
HMODULE OwnModule();

// Where a module's file is; null is the host's program.
std::wstring PathOf(HMODULE module);

}  // namespace kestra
