// Loading, leaving and ending, the way that hosts do it.

#include <kestra/kestra.h>
#include <windows.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "library.hpp"
#include "programs/stories.hpp"

namespace armour {
namespace {

constexpr const wchar_t* kLibrary = L"Kestra.dll";
constexpr DWORD kPatience = 600000;  // milliseconds; only a failing test waits so long

template <class Function>
Function Entry(HMODULE library, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

using Plain = std::int32_t(KESTRA_CALL*)();
using Adjust = std::int32_t(KESTRA_CALL*)(double);
using SetOperator = void(KESTRA_CALL*)(const KestraOperador*);
using ReadClock = std::int32_t(KESTRA_CALL*)(char*);

int32_t KESTRA_CALL Decline(void*, const char*, const char*, int32_t style) {
  return style == 0 ? 1 : 7;
}

int32_t KESTRA_CALL Close(void*, const char*, const char*, const KestraFila*, int32_t) {
  return 0;
}

void KESTRA_CALL Nothing(void*) {}

HMODULE Load(const wchar_t* file = kLibrary) {
  static const KestraOperador quiet = {sizeof quiet, nullptr, Decline, Close, Nothing};
  const HMODULE library = LoadLibraryW(file);
  if (library == nullptr) {
    Fail("LoadLibrary", "error " + std::to_string(GetLastError()));
    ExitProcess(1);
  }
  Entry<SetOperator>(library, "Kestra_DefinirOperador")(&quiet);
  return library;
}

// What the system's own files do when they are loaded is theirs, and takes them long: they are there before.
void KeepSystemLibraries() {
  for (const auto* const file :
       {L"advapi32", L"comctl32", L"gdi32", L"ole32", L"oleaut32", L"user32", L"ws2_32"}) {
    LoadLibraryW(file);
  }
}

bool IsLoaded() {
  return GetModuleHandleW(kLibrary) != nullptr;
}

Target OfSystem(const char* name, std::uintptr_t word) {
  const auto found = GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name);
  return {name, reinterpret_cast<std::uintptr_t>(found), {word}};
}

DWORD WINAPI LoadAndLeave(void*) {
  for (int i = 0; i < 40; ++i) {
    const HMODULE library = LoadLibraryW(kLibrary);
    if (library == nullptr) return 1;
    // Turned away or done: both say zero.
    if (Entry<Adjust>(library, "EP_AjusteRedondeo")(1.0) != 0) return 2;
    FreeLibrary(library);
  }
  return 0;
}

DWORD WINAPI AskForTheTime(void* library) {
  std::array<char, 12> time{};
  Entry<ReadClock>(static_cast<HMODULE>(library), "EP_ObtenerFechaHora")(time.data());
  return 0;
}

struct FirstCalls {
  HMODULE library = nullptr;
  std::atomic<int> awaited = 2;  // threads
  int boxes = 0;
};

int32_t KESTRA_CALL Count(void* context, const char*, const char*, int32_t style) {
  ++static_cast<FirstCalls*>(context)->boxes;
  return style == 0 ? 1 : 7;
}

void WaitForTheOther(FirstCalls& calls) {
  --calls.awaited;
  // Being woken would take the second one too long; but where it has no processor, it gets this one's.
  while (calls.awaited > 0) SwitchToThread();
}

DWORD WINAPI BecomeTheOperator(void* context) {
  auto& calls = *static_cast<FirstCalls*>(context);
  const KestraOperador record = {sizeof record, &calls, Count, nullptr, nullptr};
  const auto set = Entry<SetOperator>(calls.library, "Kestra_DefinirOperador");
  WaitForTheOther(calls);
  set(&record);
  return 0;
}

DWORD WINAPI AskForTheLastError(void* context) {
  auto& calls = *static_cast<FirstCalls*>(context);
  const auto ask = Entry<Plain>(calls.library, "EP_Chequear_Error");
  WaitForTheOther(calls);
  return static_cast<DWORD>(ask());
}

// A thread that has called the library outlives it.
DWORD WINAPI CallAndOutlive(void* events) {
  const auto* const both = static_cast<const HANDLE*>(events);
  const HMODULE library = LoadLibraryW(kLibrary);
  Entry<Plain>(library, "EP_CortaPapel")();  // fails inside: there was no start
  FreeLibrary(library);
  SetEvent(both[0]);
  WaitForSingleObject(both[1], kPatience);
  return 0;
}

bool LogHas(std::string_view words) {
  std::ifstream file("fiscal.log", std::ios::binary);
  const std::string log{std::istreambuf_iterator<char>(file), {}};
  return log.find(words) != log.npos;
}

}  // namespace

STORY(loading) {
  KeepSystemLibraries();
  for (const Habit& habit : Habits()) {
    const auto path = reinterpret_cast<std::uintptr_t>(kLibrary);
    CallIntact(OfSystem("LoadLibraryW", path), habit);
    const HMODULE library = GetModuleHandleW(kLibrary);
    Expect(library != nullptr, habit.name, "the library was not loaded");
    CallIntact(OfSystem("FreeLibrary", reinterpret_cast<std::uintptr_t>(library)), habit);
    Expect(!IsLoaded(), habit.name, "the library stayed");
  }
}

STORY(many_threads) {
  KeepSystemLibraries();
  std::array<HANDLE, 8> threads{};
  for (auto& thread : threads) thread = CreateThread(nullptr, 0, LoadAndLeave, nullptr, 0, nullptr);
  const auto count = static_cast<DWORD>(threads.size());
  const DWORD waited = WaitForMultipleObjects(count, threads.data(), TRUE, kPatience);
  Expect(waited == WAIT_OBJECT_0, "many threads", "some of them hang");
  for (const HANDLE thread : threads) {
    DWORD result = 99;
    GetExitCodeThread(thread, &result);
    Expect(result == 0, "many threads", "one ended with " + std::to_string(result));
  }
  Expect(!IsLoaded(), "many threads", "the library stayed");
}

STORY(twice) {
  const HMODULE first = Load(), again = Load();
  Expect(first == again, "twice", "one file is two libraries");
  FreeLibrary(again);
  Expect(Entry<Plain>(first, "EP_Init")() == 1, "twice", "the first was gone with the second");
  CopyFileW(kLibrary, L"Otra.dll", FALSE);
  const HMODULE other = Load(L"Otra.dll");
  Expect(first != other, "a copy", "is the same library");
  Expect(Entry<Plain>(other, "EP_Init")() == 1, "a copy", "does not start beside the other");
  Expect(Entry<Plain>(first, "DllCanUnloadNow")() == 1, "a copy", "ended the other");
  Entry<Plain>(other, "EP_Kill")();
  Expect(Entry<Plain>(first, "DllCanUnloadNow")() == 1, "a copy", "took the other's port along");
  FreeLibrary(other);
  Entry<Plain>(first, "EP_Kill")();
  FreeLibrary(first);
  Expect(!IsLoaded(), "twice", "the library stayed");
}

// The component system may keep the library then, which is as good as leaving: the host sees a start like the
// first.
STORY(no_goodbye) {
  for (int i = 0; i < 5; ++i) {
    const HMODULE library = Load();
    Expect(Entry<Plain>(library, "EP_Init")() == 1, "no goodbye", "the next start fails");
    std::array<char, 12> time{};
    Expect(Entry<ReadClock>(library, "EP_ObtenerFechaHora")(time.data()) == 0, "no goodbye",
           "the printer does not answer");
    FreeLibrary(library);
  }
}

// The exports that may be called at any time meet in a library that nobody has called before.
STORY(first_calls) {
  KeepSystemLibraries();
  for (int i = 0; i < 300; ++i) {
    FirstCalls calls;
    calls.library = LoadLibraryW(kLibrary);
    const std::array threads = {CreateThread(nullptr, 0, BecomeTheOperator, &calls, 0, nullptr),
                                CreateThread(nullptr, 0, AskForTheLastError, &calls, 0, nullptr)};
    const auto count = static_cast<DWORD>(threads.size());
    const DWORD waited = WaitForMultipleObjects(count, threads.data(), TRUE, kPatience);
    Expect(waited == WAIT_OBJECT_0, "first calls", "some of them hang");
    // Without a start this call has something to say.
    Entry<Plain>(calls.library, "EP_CortaPapel")();
    Expect(calls.boxes == 1, "first calls", "the operator was lost");
    for (const HANDLE thread : threads) CloseHandle(thread);
    FreeLibrary(calls.library);
    Expect(!IsLoaded(), "first calls", "the library stayed");
  }
}

STORY(threads_behind) {
  HANDLE events[] = {CreateEventW(nullptr, FALSE, FALSE, nullptr),
                     CreateEventW(nullptr, FALSE, FALSE, nullptr)};
  const HMODULE library = Load();
  const HANDLE thread = CreateThread(nullptr, 0, CallAndOutlive, events, 0, nullptr);
  WaitForSingleObject(events[0], kPatience);
  FreeLibrary(library);
  Expect(!IsLoaded(), "a thread that outlives it", "keeps the library");
  SetEvent(events[1]);
  Expect(WaitForSingleObject(thread, kPatience) == WAIT_OBJECT_0, "a thread that outlives it",
         "hangs");
}

// The component system may still have the library: it is left to the end of the process.
STORY(end_without_goodbye) {
  Expect(Entry<Plain>(Load(), "EP_Init")() == 1, "the end", "no start");
}

// The printer is silent: the call waits for it with the port open when the host ends.
STORY(end_in_mid_call) {
  const HMODULE library = Load();
  Expect(Entry<Plain>(library, "EP_Init")() == 1, "the end", "no start");
  const HANDLE thread = CreateThread(nullptr, 0, AskForTheTime, library, 0, nullptr);
  while (!LogHas(" - Output : ") && WaitForSingleObject(thread, 1) == WAIT_TIMEOUT) {
  }
  Expect(WaitForSingleObject(thread, 0) == WAIT_TIMEOUT, "the end", "the call does not wait");
}

}  // namespace armour
