#pragma once

#include <memory>

#include "kestra/kestra.h"
#include "platform/seam/platform.hpp"

namespace kestra {

struct Library;

// The library that serves the process; known to the exported functions alone.
Library& Instance();

// The host's answers to the operator's dialogs; null brings the default back.
void DefinirOperador(const KestraOperador* host_operator);

// Starts over on another world. For tests: the exports then work on fakes.
void ReplaceInstance(std::unique_ptr<Platform> platform);

}  // namespace kestra
