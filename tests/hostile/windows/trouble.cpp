// What hosts pass by mistake: amounts that are none, and pointers to nowhere.

#include <kestra/kestra.h>
#include <windows.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "library.hpp"
#include "memory.hpp"
#include "stories.hpp"

namespace armour {
namespace {

struct Amount {
  const char* name;
  std::uint64_t bits;
};

constexpr std::array kAmounts = {
    Amount{"no number", 0x7FF8000000000000},
    Amount{"no number, that signals", 0x7FF4000000000000},
    Amount{"no number, that signals, negative", 0xFFF0000000000001},
    Amount{"infinity", 0x7FF0000000000000},
    Amount{"negative infinity", 0xFFF0000000000000},
    Amount{"the greatest", 0x7FEFFFFFFFFFFFFF},
    Amount{"the least", 0xFFEFFFFFFFFFFFFF},
    Amount{"the smallest", 0x0000000000000001},
    Amount{"the smallest, negative", 0x8000000000000001},
    Amount{"the greatest of the small", 0x000FFFFFFFFFFFFF},
    Amount{"zero", 0},
    Amount{"negative zero", 0x8000000000000000},
    Amount{"a third", 0x3FD5555555555555},
    Amount{"beyond whole cents", 0x4340000000000001},
};

// Every text and result of a call is in its room, every amount is the one given.
Target With(const Export& exported, const Amount& amount, LonePage& page) {
  Words words;
  for (const Parameter& parameter : exported.Parameters()) {
    if (parameter.kind == Kind::kAmount) {
      words.Number(amount.bits);
    } else if (parameter.IsPointer()) {
      words.Address(page.RoomAtFront(kPage));
    } else {
      words.Integer(1);
    }
  }
  return words.For(exported.name);
}

bool TakesAmounts(const Export& exported) {
  return exported.Has(Kind::kAmount);
}

void PassAmount(const Amount& amount, const Habit& habit) {
  LonePage page;
  for (const Export& exported : Exports()) {
    if (!TakesAmounts(exported)) continue;
    const auto result = CallIntact(With(exported, amount, page), habit);
    Expect(result == 0 || result == 1, exported.name, amount.name);
  }
}

// ---- Counts ----

constexpr std::array<std::int32_t, 9> kCounts = {
    -0x7FFFFFFF - 1, 0x7FFFFFFF, -1, 0, 32767, 32768, -32768, -32769, 65536,
};

Target With(const Export& exported, std::int32_t count, LonePage& page) {
  Words words;
  for (const Parameter& parameter : exported.Parameters()) {
    if (parameter.kind == Kind::kAmount) {
      words.Number(0);
    } else if (parameter.IsPointer()) {
      words.Address(page.RoomAtFront(kPage));
    } else {
      words.Integer(count);
    }
  }
  return words.For(exported.name);
}

void PassCount(std::int32_t count, const Habit& habit) {
  LonePage page;
  for (const Export& exported : Exports()) {
    if (!exported.Has(Kind::kInteger)) continue;
    const auto result = CallIntact(With(exported, count, page), habit);
    Expect(result == 0 || result == 1, exported.name, std::to_string(count));
  }
}

// ---- Pointers ----

struct BadPointer {
  const char* name;
  const void* address;
};

const void* At(std::uint64_t address) {
  return reinterpret_cast<const void*>(static_cast<std::uintptr_t>(address));
}

// Memory of many kinds that a host's pointer may lead to.
class Places {
 public:
  Places() {
    text_.RoomAtFront(kPage);
    locked_.RoomAtFront(0);
    locked_.MayBeWritten(false);
    last_.RoomAtEnd(1);
    std::memcpy(code_.data(), Code(), code_.size());
  }

  [[nodiscard]] std::vector<BadPointer> All() const {
    std::vector<BadPointer> all = {
        {"null", nullptr},
        {"the first byte of all", At(1)},
        {"no memory", text_.Nowhere()},
        {"memory that nobody may write", locked_.Nowhere() - kPage},
        {"the library's code", Code()},
        {"the last byte that there is", last_.Nowhere() - 1},
        {"the end of the system's memory", At(~std::uint64_t{0})},
        {"the system's memory", At(~std::uint64_t{0} - 0xFFFF)},
    };
#ifndef __i386__
    all.push_back({"an address that is none", At(0x0123456789ABCDEF)});
#endif
    return all;
  }

  char* Good() {
    return text_.RoomAtFront(kPage);
  }

  void ExpectUntouched(const std::string& what) const {
    Expect(locked_.RestUntouched(), what, "wrote where nobody may");
    Expect(last_.RestUntouched(), what, "wrote before the pointer");
    Expect(std::memcmp(code_.data(), Code(), code_.size()) == 0, what, "wrote over code");
  }

 private:
  static const void* Code() {
    return At(AddressOf("EP_Init"));
  }

  std::array<char, 120> code_{};
  LonePage text_, locked_, last_;
};

constexpr std::size_t kAllOfThem = 99;

// The call with the pointer of that position bad, the others good.
Target With(const Export& exported, const BadPointer& bad, std::size_t position, Places& places) {
  Words words;
  std::size_t i = 0;
  for (const Parameter& parameter : exported.Parameters()) {
    const bool here = position == i++ || position == kAllOfThem;
    if (parameter.kind == Kind::kAmount) {
      words.Number(kAmounts.back().bits);
    } else if (parameter.kind == Kind::kInteger) {
      words.Integer(1);
    } else {
      words.Address(here ? bad.address : places.Good());
    }
  }
  return words.For(exported.name);
}

void ExpectSurvived(const Export& exported, const BadPointer& bad, std::size_t position,
                    Places& places) {
  const std::string what =
      std::string(exported.name).append(", ").append(bad.name).append(" as its argument ") +
      std::to_string(position);
  Target target = With(exported, bad, position, places);
  target.name = what;
  const auto result = CallIntact(target, EverythingTraps());
  if (exported.name == "Kestra_DefinirOperador") {
    TakeTheOperatorsPlace();  // no record is one without callbacks
  } else if (exported.name == "DllGetClassObject") {
    Expect(result < 0, what, "gave a class");
  } else {
    Expect(result == 0 || result == 1, what, "gave no result");
  }
  places.ExpectUntouched(what);
}

void PassBadPointers(const Export& exported) {
  Places places;
  const auto parameters = exported.Parameters();
  for (const BadPointer& bad : places.All()) {
    for (std::size_t i = 0; i < parameters.size(); ++i) {
      if (parameters[i].IsPointer()) ExpectSurvived(exported, bad, i, places);
    }
    if (!parameters.empty()) ExpectSurvived(exported, bad, kAllOfThem, places);
  }
}

// A class that there is, its factory to be written to a place that is none: nothing may stay behind.
void AskForAClass() {
  constexpr GUID kUnknown = {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
  CLSID id = {};
  using FromName = HRESULT(WINAPI*)(LPCWSTR, CLSID*);
  const auto from_name = reinterpret_cast<FromName>(
      reinterpret_cast<void*>(GetProcAddress(LoadLibraryW(L"ole32.dll"), "CLSIDFromProgID")));
  CallIntact(Words().For("DllRegisterServer"), EverythingTraps());
  const bool known = SUCCEEDED(from_name(L"Kestra.InitClass", &id));
  CallIntact(Words().For("DllUnregisterServer"), EverythingTraps());
  Expect(known, "DllRegisterServer", "its class has no name");
  const Places places;
  for (const BadPointer& bad : places.All()) {
    const auto target =
        Words().Address(&id).Address(&kUnknown).Address(bad.address).For("DllGetClassObject");
    Expect(CallIntact(target, EverythingTraps()) < 0, bad.name, "received a class");
    Expect(CallIntact(Words().For("DllCanUnloadNow"), EverythingTraps()) == 0, bad.name,
           "a factory stayed behind");
    places.ExpectUntouched(bad.name);
  }
}

}  // namespace

void Numbers() {
  LoadLibraryUnderTest();
  TakeTheOperatorsPlace();
  Expect(CallIntact(Words().For("EP_Init"), EverythingTraps()) == 1, "EP_Init", "failed");
  for (const Habit& habit : Habits()) {
    const int shown = Shown();
    for (const Amount& amount : kAmounts) PassAmount(amount, habit);
    for (const std::int32_t count : kCounts) PassCount(count, habit);
    Expect(Shown() > shown, habit.name, "no amount was told to be none");
  }
  CallIntact(Words().For("EP_Kill"), EverythingTraps());
}

// The printer answers: there is something to write.
void BadPointersForResults() {
  LoadLibraryUnderTest();
  TakeTheOperatorsPlace();
  Expect(CallIntact(Words().For("EP_Init"), EverythingTraps()) == 1, "EP_Init", "failed");
  LonePage page;
  const std::string_view time(page.RoomAtEnd(12), 12);
  const auto target = Words().Address(time.data()).For("EP_ObtenerFechaHora");
  Expect(CallIntact(target, EverythingTraps()) == 0, target.name, "failed");
  Expect(time.find_first_not_of("0123456789") == time.npos, target.name, "gave no time");
  Expect(page.RestUntouched(), target.name, "wrote before its result");
  for (const Export& exported : Exports()) {
    const bool operates = exported.name.substr(0, 3) == "EP_";
    if (operates && exported.Has(Kind::kResult)) {
      PassBadPointers(exported);
    }
  }
  CallIntact(Words().For("EP_Kill"), EverythingTraps());
}

void BadPointers() {
  LoadLibraryUnderTest();
  TakeTheOperatorsPlace();
  AskForAClass();
  Expect(CallIntact(Words().For("EP_Init"), EverythingTraps()) == 1, "EP_Init", "failed");
  for (const Export& exported : Exports()) PassBadPointers(exported);
  CallIntact(Words().For("EP_Kill"), EverythingTraps());
}

}  // namespace armour
