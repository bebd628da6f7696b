#pragma once

#include <string>
#include <string_view>

#include "platform/posix/file_descriptor.hpp"

namespace kestra {

// ".\fiscal.log" as this system writes it: "./fiscal.log".
std::string NativePath(std::string_view file);

// open() that a signal does not fail; the descriptor does not reach the programs that the host
// starts, is no standard stream's, and a terminal does not become the host's own.
FileDescriptor OpenFile(const std::string& path, int flags);

// Writes all bytes to a descriptor; false, with errno set, when that cannot be done.
bool WriteAll(int fd, std::string_view bytes);

}  // namespace kestra
