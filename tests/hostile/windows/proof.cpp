// The watch is worth something only when it sees: functions that break each promise.

#include <windows.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "hostile/shared/lone_page.hpp"
#include "programs/stories.hpp"
#include "watch.hpp"

extern "C" {
extern std::uintptr_t damage_table[];
}

// One function for each damage; the table names what the watch has to say about it.
#ifdef __i386__
#define SYMBOL(name) "_" name
#define POINTER ".long "
#else
#define SYMBOL(name) name
#define POINTER ".quad "
#endif
#define ROW(what, body)                       \
  ".data\n" POINTER                           \
  "8f, 9f\n"                                  \
  ".section .rdata,\"dr\"\n8: .asciz \"" what \
  "\"\n"                                      \
  ".text\n9: " body "\nret\n"
#define REGISTER(name) ROW(name, "not %" name)
#define VECTOR(name) ROW(name " (low)", "pcmpeqb %" name ", %" name)

__asm__(".data\n.balign 8\n.globl " SYMBOL("damage_table") "\n" SYMBOL("damage_table") ":\n" ROW(
    "the x87 control word", "fninit")
            ROW("the x87 status word", "fldz\nfld1\nfdiv %st(1), %st\nfcompp")
                ROW("the x87 stack", "fldz") ROW("the direction flag", "std")
#ifdef __i386__
                    ROW("MXCSR", "pushl $0x1FA0\nldmxcsr (%esp)\npopl %eax")
                        ROW("the stack", "popl %eax\npopl %ecx\npushl %eax")
                            ROW("the stack", "popl %eax\npushl %eax\npushl %eax") REGISTER("ebx")
                                REGISTER("esi") REGISTER("edi") REGISTER("ebp")
#else
                    ROW("MXCSR", "pushq $0x1FA0\nldmxcsr (%rsp)\npopq %rax")
                        ROW("the stack", "popq %rax\npopq %rcx\npushq %rax") REGISTER("rbx")
                            REGISTER("rbp") REGISTER("rsi") REGISTER("rdi") REGISTER("r12")
                                REGISTER("r13") REGISTER("r14") REGISTER("r15") VECTOR("xmm6")
                                    VECTOR("xmm7") VECTOR("xmm8") VECTOR("xmm9") VECTOR("xmm10")
                                        VECTOR("xmm11") VECTOR("xmm12") VECTOR("xmm13")
                                            VECTOR("xmm14") VECTOR("xmm15")
#endif
                                    ".data\n" POINTER "0, 0\n.text\n");

// Faults, by the trap that they need.
__asm__(
    ".text\n"
    ".globl " SYMBOL("fault_x87") ", " SYMBOL("fault_vector") ", " SYMBOL("fault_memory") "\n"
    SYMBOL("fault_x87") ": fldz\nfld1\nfdiv %st(1), %st\nfwait\nfcompp\nret\n"
    SYMBOL("fault_memory") ": xorl %eax, %eax\nmovb $1, (%eax)\nret\n"
    SYMBOL("fault_vector") ": movl $1, %eax\ncvtsi2sd %eax, %xmm0\nxorps %xmm1, %xmm1\n"
    "divsd %xmm1, %xmm0\nret\n"
    SYMBOL("does_nothing") ": ret\n"
    ".globl " SYMBOL("does_nothing") "\n");

extern "C" {
void fault_x87();
void fault_vector();
void fault_memory();
void does_nothing();
}

namespace armour {
namespace {

Target Of(std::string_view name, void (*function)()) {
  return {name, reinterpret_cast<std::uintptr_t>(function)};
}

void ExpectSeen(const char* what, std::uintptr_t function) {
  // Room on the stack for the one that takes too much of it.
  const Outcome outcome = CallUnderWatch({what, function}, Habits().front());
  Expect(outcome.fault == 0, what, "the damage is a fault");
  bool seen = false;
  for (const auto& damage : outcome.damages) seen = seen || damage.find(what) == 0;
  Expect(seen, what, "the damage is not seen");
  Expect(outcome.damages.size() <= 2, what, "more is seen than was done");
}

struct FaultRow {
  const char* name;
  void (*function)();
  const Habit& habit;
  DWORD wanted;
};

void ExpectFaults() {
  const std::array rows = {
      FaultRow{"x87 without traps", fault_x87, Habits().front(), 0},
      FaultRow{"x87 with traps", fault_x87, EverythingTraps(), EXCEPTION_FLT_DIVIDE_BY_ZERO},
      FaultRow{"vectors without traps", fault_vector, Habits().front(), 0},
      FaultRow{"vectors with traps", fault_vector, EverythingTraps(), 0xFFFFFFFF},
      FaultRow{"memory", fault_memory, Habits().front(), EXCEPTION_ACCESS_VIOLATION},
  };
  for (const auto& row : rows) {
    const DWORD fault = CallUnderWatch(Of(row.name, row.function), row.habit).fault;
    // Systems name the vector unit's faults differently.
    const bool right = row.wanted == 0xFFFFFFFF ? fault != 0 : fault == row.wanted;
    Expect(right, row.name, "raised " + std::to_string(fault));
  }
}

void ExpectWritesSeen() {
  kestra::hostile::LonePage page;
  page.RoomAt(0, 8)[7] = 'x';
  Expect(page.RestUntouched(), "memory", "a write within the room is taken for one outside");
  page.RoomAt(0, 8)[8] = 'x';
  Expect(!page.RestUntouched(), "memory", "a write behind the room is not seen");
  page.RoomAtEnd(8)[-1] = 'x';
  Expect(!page.RestUntouched(), "memory", "a write before the room is not seen");
}

}  // namespace

STORY(watch) {
  for (const Habit& habit : Habits()) {
    const Outcome outcome = CallUnderWatch(Of("nothing", does_nothing), habit);
    Expect(outcome.fault == 0, habit.name, "doing nothing is a fault");
    for (const auto& damage : outcome.damages) Fail(habit.name, damage + " by nothing");
  }
  int count = 0;
  for (const auto* row = damage_table; row[0] != 0; row += 2, ++count) {
    ExpectSeen(reinterpret_cast<const char*>(row[0]), row[1]);
  }
  Expect(count >= 10, "watch", "the table of damages is cut short");
  ExpectFaults();
  ExpectWritesSeen();
}

}  // namespace armour
