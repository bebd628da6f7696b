#include "platform/seam/host.hpp"

#include <windows.h>

namespace kestra {
namespace {

// Nothing traps, to the nearest: what a program begins with.
constexpr std::uint32_t kDefaultVectorControl = 0x1F80;

// The compiler's run time minds the old unit alone; 64-bit hosts calculate with the vector unit, and
// the oldest tills have none.
bool HasVectorUnit() {
  return ::IsProcessorFeaturePresent(PF_XMMI_INSTRUCTIONS_AVAILABLE) != FALSE;
}

std::uint32_t VectorControl() {
  std::uint32_t control = 0;
  __asm__ volatile("stmxcsr %0" : "=m"(control));
  return control;
}

void SetVectorControl(std::uint32_t control) {
  __asm__ volatile("ldmxcsr %0" : : "m"(control));
}

// Where the piece of memory begins that was taken together with that address.
void* PieceOf(std::uintptr_t address) {
  MEMORY_BASIC_INFORMATION pages = {};
  const auto known = ::VirtualQuery(reinterpret_cast<void*>(address), &pages, sizeof pages);
  return known == 0 ? nullptr : pages.AllocationBase;
}

}  // namespace

FloatingPoint::FloatingPoint() noexcept {
  // First of all: the run time may set up both units anew where it is asked for one.
  if (HasVectorUnit()) hosts_vector_control_ = VectorControl();
  std::feholdexcept(&hosts_);
  std::fesetenv(FE_PC53_ENV);  // doubles, and no digit more
  if (HasVectorUnit()) SetVectorControl(kDefaultVectorControl);
}

FloatingPoint::~FloatingPoint() {
  std::fesetenv(&hosts_);
  if (HasVectorUnit()) SetVectorControl(hosts_vector_control_);
}

// The stack of each thread and of each fiber is a piece of its own.
bool InOneStack(std::uintptr_t one, std::uintptr_t other) noexcept {
  void* const piece = PieceOf(one);
  return piece != nullptr && piece == PieceOf(other);
}

}  // namespace kestra
