#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// The call of one function with the machine set up as a host of any habits might have it, and with a look at
// everything that the function left behind. guarded_call_x86.S and guarded_call_x64.S know these names and
// layouts.

namespace armour {

constexpr std::size_t kMostWords = 32;
#ifdef __i386__
constexpr std::size_t kKeptRegisters = 4;  // ebx, esi, edi, ebp
constexpr std::size_t kKeptVectors = 0;
#else
constexpr std::size_t kKeptRegisters = 8;  // rbx, rbp, rsi, rdi, r12 to r15
constexpr std::size_t kKeptVectors = 10;   // xmm6 to xmm15
#endif

// What the x87 unit loads and stores as its environment.
struct OldUnit {
  std::uint32_t control = 0;
  std::uint32_t status = 0;
  std::uint32_t tags = 0;
  std::array<std::uint32_t, 4> where{};
};
static_assert(sizeof(OldUnit) == 28);

struct FloatingPoint {
  OldUnit old;
  std::uint32_t vector = 0;
};

struct Vector {
  std::uint64_t low = 0, high = 0;
};

}  // namespace armour

extern "C" {

// In: what to call, with which words on the stack, after how many bytes that spoil the stack's alignment.
extern std::uintptr_t guarded_function;
extern std::uintptr_t guarded_words[armour::kMostWords];
extern std::uintptr_t guarded_count;
extern std::uintptr_t guarded_misalignment;
extern std::uintptr_t guarded_registers[armour::kKeptRegisters];
extern armour::Vector guarded_vectors[armour::kKeptVectors + 1];
extern armour::FloatingPoint guarded_floating;

// Out.
extern std::uintptr_t guarded_result;
extern std::uintptr_t guarded_stack_before;
extern std::uintptr_t guarded_stack_after;
extern std::uintptr_t guarded_registers_after[armour::kKeptRegisters];
extern armour::Vector guarded_vectors_after[armour::kKeptVectors + 1];
extern std::uintptr_t guarded_flags_after;
extern armour::FloatingPoint guarded_floating_after;

void guarded_call();
// Where to go on when the function faulted: back to the caller of guarded_call.
void guarded_way_out();
}
