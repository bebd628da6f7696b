// Hosts that leave a callback with an exception or a jump of their own: the call that it came from never ends.

#include <kestra/kestra.h>
#include <windows.h>

#include <array>
#include <csetjmp>
#include <cstdint>
#include <string>

#include "library.hpp"
#include "programs/stories.hpp"

namespace armour {
namespace {

using Plain = std::int32_t(KESTRA_CALL*)();
using ReadClock = std::int32_t(KESTRA_CALL*)(char*);
using SetOperator = void(KESTRA_CALL*)(const KestraOperador*);

template <class Function>
Function Entry(std::string_view name) {
  return reinterpret_cast<Function>(AddressOf(name));
}

std::int32_t AskForTheTime() {
  std::array<char, 12> time{};
  return Entry<ReadClock>("EP_ObtenerFechaHora")(time.data());
}

DWORD WINAPI AskForTheTimeThere(void* result) {
  *static_cast<std::int32_t*>(result) = AskForTheTime();
  return 0;
}

std::int32_t FromAnotherThread() {
  std::int32_t result = -1;
  const HANDLE thread = CreateThread(nullptr, 0, AskForTheTimeThere, &result, 0, nullptr);
  WaitForSingleObject(thread, INFINITE);
  CloseHandle(thread);
  return result;
}

struct Way {
  const char* name;
  void (*leave)();
};

std::jmp_buf way_back;

const std::array kWays = {
    Way{"a fault that the host catches",
        [] { RaiseException(static_cast<DWORD>(EXCEPTION_INT_DIVIDE_BY_ZERO), 0, 0, nullptr); }},
    Way{"a jump", [] { std::longjmp(way_back, 1); }},
};

struct Leaving {
  const Way* way = nullptr;  // null: the callback returns
  int boxes = 0;
  std::int32_t from_within = -1;
};

int32_t KESTRA_CALL Leave(void* context, const char*, const char*, int32_t style) {
  auto& leaving = *static_cast<Leaving*>(context);
  ++leaving.boxes;
  leaving.from_within = AskForTheTime();
  if (leaving.way != nullptr) leaving.way->leave();
  return style == 0 ? 1 : 7;
}

// Either way out ends here: the first is led out by the watch on the call, the second by the jump.
void CallAndLeave(const char* name) {
  if (setjmp(way_back) == 0) CallUnderWatch(Words().For(name), Habits().front());
}

void CallByCall(const Way& way, const char* name) {
  const std::string what = std::string(way.name) + " out of " + name;
  Leaving leaving{.way = &way};
  const KestraOperador record = {sizeof record, &leaving, Leave, nullptr, nullptr};
  Entry<SetOperator>("Kestra_DefinirOperador")(&record);
  CallAndLeave(name);
  Expect(leaving.boxes == 1, what, "the callback ran more than once, or never");
  Expect(leaving.from_within == 1, what, "a call from within was not turned away");
  // It has no way to know that the call is gone.
  Expect(FromAnotherThread() == 1, what, "another thread took the turn over");
  leaving.way = nullptr;
  Expect(AskForTheTime() == 0, what, "the next call fails");
  Expect(leaving.boxes > 1 && leaving.from_within == 1, what,
         "the next call has no turn of its own");
  Expect(FromAnotherThread() == 0, what, "another thread's call fails");
}

}  // namespace

// The settings show every answer, while the port is open, and have a bad key, while the classes are registered.
STORY(abandoned) {
  LoadLibraryUnderTest();
  for (const Way& way : kWays) {
    TakeTheOperatorsPlace();
    Expect(Entry<Plain>("EP_Init")() == 1, way.name, "no start");
    CallByCall(way, "EP_ReporteX");
    CallByCall(way, "EP_Init");
    Entry<Plain>("EP_Kill")();
  }
}

}  // namespace armour
