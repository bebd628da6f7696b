#pragma once

#include <cstddef>

namespace kestra {

// The host's memory, which need not be where the host says. Both copy as many bytes as there are from
// the front and return their count; memory that is not there ends the copy and nothing else.
std::size_t ReadHostMemory(void* to, const void* from, std::size_t count) noexcept;
std::size_t WriteHostMemory(void* to, const void* from, std::size_t count) noexcept;

}  // namespace kestra
