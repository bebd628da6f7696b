#include "platform/seam/host.hpp"

#include <windows.h>

#include <algorithm>
#include <cstdint>

namespace kestra {
namespace {

constexpr std::size_t kPage = 4096;

std::size_t WithinPage(const void* address, std::size_t count) {
  return std::min<std::size_t>(count, kPage - reinterpret_cast<std::uintptr_t>(address) % kPage);
}

// The system writes over code when it is asked to as below, which is right for debuggers alone.
bool MayBeWritten(const void* address) {
  constexpr DWORD kWritable =
      PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
  MEMORY_BASIC_INFORMATION pages = {};
  return ::VirtualQuery(address, &pages, sizeof pages) != 0 && pages.State == MEM_COMMIT &&
         (pages.Protect & kWritable) != 0 && (pages.Protect & PAGE_GUARD) == 0;
}

}  // namespace

// The system copies and says when a page is not there, instead of raising what a host cannot catch.
std::size_t ReadHostMemory(void* to, const void* from, std::size_t count) noexcept {
  std::size_t done = 0;
  while (done < count) {
    const auto* there = static_cast<const char*>(from) + done;
    const auto part = WithinPage(there, count - done);
    SIZE_T copied = 0;
    if (!::ReadProcessMemory(::GetCurrentProcess(), there, static_cast<char*>(to) + done, part,
                             &copied)) {
      return done;
    }
    done += part;
  }
  return done;
}

std::size_t WriteHostMemory(void* to, const void* from, std::size_t count) noexcept {
  std::size_t done = 0;
  while (done < count) {
    auto* there = static_cast<char*>(to) + done;
    const auto part = WithinPage(there, count - done);
    SIZE_T copied = 0;
    if (!MayBeWritten(there) ||
        !::WriteProcessMemory(::GetCurrentProcess(), there, static_cast<const char*>(from) + done,
                              part, &copied)) {
      return done;
    }
    done += part;
  }
  return done;
}

}  // namespace kestra
