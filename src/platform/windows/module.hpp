#pragma once

#include <windows.h>

#include <string>

namespace kestra {

// The file that this code and its resources are in, whoever loaded it.
HMODULE OwnModule();

// Where a module's file is; null is the host's program.
std::wstring PathOf(HMODULE module);

// Full path of that file, whatever the host renamed it to.
std::wstring ModulePath();

}  // namespace kestra
