#include "watch.hpp"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

extern "C" {
std::uintptr_t guarded_function;
std::uintptr_t guarded_words[armour::kMostWords];
std::uintptr_t guarded_count;
std::uintptr_t guarded_misalignment;
std::uintptr_t guarded_registers[armour::kKeptRegisters];
armour::Vector guarded_vectors[armour::kKeptVectors + 1];
armour::FloatingPoint guarded_floating;
std::uintptr_t guarded_result;
std::uintptr_t guarded_stack_before;
std::uintptr_t guarded_stack_after;
std::uintptr_t guarded_registers_after[armour::kKeptRegisters];
armour::Vector guarded_vectors_after[armour::kKeptVectors + 1];
std::uintptr_t guarded_flags_after;
armour::FloatingPoint guarded_floating_after;
}

namespace armour {
namespace {

constexpr std::uintptr_t kDirectionFlag = 0x400;
constexpr std::uint32_t kEmptyTags = 0xFFFF;

#ifdef __i386__
constexpr std::array<const char*, kKeptRegisters> kNames = {"ebx", "esi", "edi", "ebp"};
constexpr bool kRemovesArguments = true;
#else
constexpr std::array<const char*, kKeptRegisters> kNames = {"rbx", "rbp", "rsi", "rdi",
                                                            "r12", "r13", "r14", "r15"};
constexpr bool kRemovesArguments = false;
#endif

constexpr FloatingPoint Units(std::uint32_t control, std::uint32_t vector, std::uint32_t status = 0,
                              std::uint32_t tags = kEmptyTags) {
  return {{0xFFFF0000U | control, 0xFFFF0000U | status, 0xFFFF0000U | tags, {}}, vector};
}

volatile bool inside = false;
volatile DWORD inside_thread = 0;
volatile DWORD fault = 0;

// Of those that a processor raises; a thrown C++ exception is none of them.
bool IsFault(DWORD code) {
  constexpr std::array kOthers = {STATUS_FLOAT_MULTIPLE_FAULTS, STATUS_FLOAT_MULTIPLE_TRAPS,
                                  STATUS_DATATYPE_MISALIGNMENT, STATUS_GUARD_PAGE_VIOLATION};
  const bool of_programs = code >= static_cast<DWORD>(STATUS_ACCESS_VIOLATION) &&
                           code <= static_cast<DWORD>(STATUS_STACK_OVERFLOW);
  return of_programs || std::any_of(kOthers.begin(), kOthers.end(),
                                    [&](auto other) { return static_cast<DWORD>(other) == code; });
}

LONG CALLBACK LeadOut(EXCEPTION_POINTERS* raised) {
  const DWORD code = raised->ExceptionRecord->ExceptionCode;
  if (!inside || inside_thread != GetCurrentThreadId() || !IsFault(code)) {
    return EXCEPTION_CONTINUE_SEARCH;
  }
  fault = code;
  const auto way_out = reinterpret_cast<std::uintptr_t>(&guarded_way_out);
#ifdef __i386__
  raised->ContextRecord->Eip = way_out;
#else
  raised->ContextRecord->Rip = way_out;
#endif
  return EXCEPTION_CONTINUE_EXECUTION;
}

void SetUp(const Target& target, const Habit& habit, std::uintptr_t misalignment) {
  guarded_function = target.address;
  guarded_count = target.words.size();
  std::fill(std::begin(guarded_words), std::end(guarded_words), 0);
  std::copy(target.words.begin(), target.words.end(), std::begin(guarded_words));
  guarded_misalignment = misalignment;
  guarded_floating = habit.floating;
  for (std::size_t i = 0; i < kKeptRegisters; ++i) guarded_registers[i] = 0x5EED0001 + i;
  for (std::size_t i = 0; i < kKeptVectors; ++i) {
    guarded_vectors[i] = {0x5EED5EED5EED0101U + i, 0x5EED5EED5EED0201U + i};
  }
}

using Damages = std::vector<std::string>;

void Compare(Damages& damages, const std::string& what, std::uint64_t before, std::uint64_t after) {
  if (before == after) return;
  std::array<char, 80> change{};
  std::snprintf(change.data(), change.size(), " was %llX, is %llX",
                static_cast<unsigned long long>(before), static_cast<unsigned long long>(after));
  damages.push_back(what + change.data());
}

// Which places are taken, not what they hold: two bits for each.
std::uint32_t Taken(std::uint32_t tags) {
  const std::uint32_t empty = tags & (tags >> 1) & 0x5555U;
  return ~empty & 0x5555U;
}

void CompareFloating(Damages& damages) {
  constexpr std::uint32_t kLow = 0xFFFF;
  constexpr std::uint32_t kStatus = kLow & ~0x4700U;  // but for the outcome of comparisons
  const auto& [before, vector_before] = guarded_floating;
  const auto& [after, vector_after] = guarded_floating_after;
  Compare(damages, "the x87 control word", before.control & kLow, after.control & kLow);
  Compare(damages, "the x87 status word", before.status & kStatus, after.status & kStatus);
  Compare(damages, "the x87 stack", Taken(before.tags), Taken(after.tags));
  Compare(damages, "MXCSR", vector_before, vector_after);
}

void CompareRegisters(Damages& damages) {
  for (std::size_t i = 0; i < kKeptRegisters; ++i) {
    Compare(damages, kNames[i], guarded_registers[i], guarded_registers_after[i]);
  }
  for (std::size_t i = 0; i < kKeptVectors; ++i) {
    const std::string name = "xmm" + std::to_string(6 + i);
    Compare(damages, name + " (low)", guarded_vectors[i].low, guarded_vectors_after[i].low);
    Compare(damages, name + " (high)", guarded_vectors[i].high, guarded_vectors_after[i].high);
  }
}

Damages Damage() {
  Damages damages;
  const auto removed = kRemovesArguments ? guarded_count * sizeof(void*) : 0;
  Compare(damages, "the stack", guarded_stack_before + removed, guarded_stack_after);
  Compare(damages, "the direction flag", 0, guarded_flags_after & kDirectionFlag);
  CompareRegisters(damages);
  CompareFloating(damages);
  return damages;
}

std::string Told(const Target& target, const Habit& habit) {
  return std::string(target.name).append(" (").append(habit.name).append(")");
}

}  // namespace

const std::vector<Habit>& Habits() {
  static const std::vector<Habit> habits = {
      {"as programs begin", Units(0x027F, 0x1F80)},
      {"with Pascal's traps", Units(0x1372, 0x1900)},
      {"with every trap", Units(0x0340, 0x0000)},
      {"truncating, whole digits", Units(0x0F7F, 0x7F80)},
      {"upward, few digits, no denormals", Units(0x087F, 0xDFC0)},
      {"downward, with every flag up", Units(0x077F, 0x3FBF, 0x007F)},
      {"with every trap, flags of the vector unit up", Units(0x0340, 0x003F)},
      {"with an exception that waits", Units(0x0372, 0x1F80, 0x8084)},
      {"with two values on the x87 stack", Units(0x037F, 0x1F80, 0x3000, 0x0FFF)},
  };
  return habits;
}

const Habit& EverythingTraps() {
  return Habits()[2];
}

Outcome CallUnderWatch(const Target& target, const Habit& habit, std::uintptr_t misalignment) {
  SetUp(target, habit, misalignment);
  fault = 0;
  inside_thread = GetCurrentThreadId();
  inside = true;
  guarded_call();
  inside = false;
  Outcome outcome;
  outcome.fault = fault;
  if (outcome.fault != 0) return outcome;
  outcome.result = static_cast<std::int32_t>(guarded_result);
  outcome.damages = Damage();
  return outcome;
}

void BeginWatch() {
  AddVectoredExceptionHandler(1, LeadOut);
}

std::int32_t CallIntact(const Target& target, const Habit& habit, std::uintptr_t misalignment) {
  const Outcome outcome = CallUnderWatch(target, habit, misalignment);
  for (const auto& damage : outcome.damages) Fail(Told(target, habit), damage);
  if (outcome.fault == 0) return outcome.result;
  std::array<char, 40> code{};
  std::snprintf(code.data(), code.size(), "raised %08X", outcome.fault);
  Fail(Told(target, habit), code.data());
  std::fflush(stdout);
  std::_Exit(EXIT_FAILURE);
}

}  // namespace armour
