#include "platform/seam/stack.hpp"

#include <windows.h>

namespace kestra {
namespace {

// Where the piece of memory begins that was taken together with that address.
void* PieceOf(std::uintptr_t address) {
  MEMORY_BASIC_INFORMATION pages = {};
  const auto known = ::VirtualQuery(reinterpret_cast<void*>(address), &pages, sizeof pages);
  return known == 0 ? nullptr : pages.AllocationBase;
}

}  // namespace

// The stack of each thread and of each fiber is a piece of its own.
bool InOneStack(std::uintptr_t one, std::uintptr_t other) noexcept {
  void* const piece = PieceOf(one);
  return piece != nullptr && piece == PieceOf(other);
}

}  // namespace kestra
