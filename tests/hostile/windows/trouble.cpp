// What hosts pass by mistake: amounts that are none, and pointers to nowhere.

#include <kestra/kestra.h>
#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "hostile/shared/values.hpp"
#include "library.hpp"
#include "programs/stories.hpp"

namespace armour {
namespace {

// What tells of a call tells numbers and lengths of its own.
bool IsAResult(const Export& exported, std::int32_t result) {
  constexpr auto kNothingNamed = static_cast<std::int32_t>(0x80070057);
  if (exported.name == "DllInstall") return result == kNothingNamed;
  return exported.nature == Nature::kReport ? result >= 0 : result == 0 || result == 1;
}

using kestra::exports::Arguments;
using kestra::exports::Values;
using kestra::hostile::Hostile;
using kestra::hostile::HostileTo;
using kestra::hostile::kPage;
using kestra::hostile::Places;
using kestra::hostile::Sane;

const void* Code() {
  return reinterpret_cast<const void*>(AddressOf("EP_Init"));
}

// ---- Numbers: every one of a kind is the one given, every text and result in a page of its own ----

void PassNumber(Kind kind, const Hostile& hostile, const Habit& habit, Places& places) {
  LonePage page;
  for (const Export& exported : Exports()) {
    if (!exported.Has(kind)) continue;
    Values values;
    auto* value = values.data();
    for (const auto& argument : Arguments(exported, exported.sane)) {
      const bool here = argument.kind == kind;
      *value++ = here ? hostile.make(argument, places) : Sane(argument, page.RoomAt(0, kPage));
    }
    const auto result = CallIntact(Words::Of(exported, values), habit);
    Expect(IsAResult(exported, result), exported.name, hostile.name);
  }
}

// ---- Pointers ----

constexpr std::size_t kAllOfThem = 99;

void ExpectSurvived(const Export& exported, const std::string& what, const Values& values,
                    const Places& places) {
  Target target = Words::Of(exported, values);
  target.name = what;
  const auto result = CallIntact(target, EverythingTraps());
  if (exported.name == "Kestra_DefinirOperador") {
    TakeTheOperatorsPlace();  // no record is one without callbacks
  } else if (exported.name == "DllGetClassObject") {
    Expect(result < 0, what, "gave a class");
  } else {
    Expect(IsAResult(exported, result), what, "gave no result");
  }
  Expect(places.Untouched(), what, "wrote where nobody may");
}

// The call with the pointer of that position bad, the others good; or all of them, each in its turn.
void PassBadPointers(const Export& exported, std::size_t position) {
  const auto arguments = Arguments(exported, exported.sane);
  const std::size_t most = position == kAllOfThem ? 20 : HostileTo(arguments[position]).size();
  std::vector<LonePage> pages(arguments.size());
  Places places(Code());
  for (std::size_t turn = 0; turn < most; ++turn) {
    std::string what = std::string(exported.name) + ", argument " + std::to_string(position) + ":";
    Values values;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
      const auto& list = HostileTo(arguments[i]);
      const auto& hostile = list[turn % list.size()];
      const bool here = arguments[i].IsPointer() && (position == i || position == kAllOfThem);
      values[i] = here ? hostile.make(arguments[i], places)
                       : Sane(arguments[i], pages[i].RoomAt(0, arguments[i].size));
      if (here) what += " " + hostile.name;
    }
    ExpectSurvived(exported, what, values, places);
  }
}

void PassBadPointers(const Export& exported) {
  const auto parameters = exported.Parameters();
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (parameters[i].IsPointer()) PassBadPointers(exported, i);
  }
  if (!parameters.empty()) PassBadPointers(exported, kAllOfThem);
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
  Places places(Code());
  for (const Hostile& bad : HostileTo({Kind::kResult})) {
    if (bad.is_sound) continue;
    const void* const there = bad.make({{Kind::kResult, 1}}, places).pointer;
    const auto target =
        Words().Address(&id).Address(&kUnknown).Address(there).For("DllGetClassObject");
    Expect(CallIntact(target, EverythingTraps()) < 0, bad.name, "received a class");
    Expect(CallIntact(Words().For("DllCanUnloadNow"), EverythingTraps()) == 0, bad.name,
           "a factory stayed behind");
    Expect(places.Untouched(), bad.name, "wrote where nobody may");
  }
}

}  // namespace

STORY(numbers) {
  StartLibraryUnderTest();
  Places places(Code());
  for (const Habit& habit : Habits()) {
    const int shown = Shown();
    for (const Kind kind : {Kind::kAmount, Kind::kInteger}) {
      for (const Hostile& hostile : HostileTo({kind})) PassNumber(kind, hostile, habit, places);
    }
    Expect(Shown() > shown, habit.name, "no amount was told to be none");
  }
  CallIntact(Words().For("EP_Kill"), EverythingTraps());
}

// The printer answers: there is something to write.
STORY(result_pointers) {
  StartLibraryUnderTest();
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

STORY(pointers) {
  LoadLibraryUnderTest();
  TakeTheOperatorsPlace();
  AskForAClass();
  Expect(CallIntact(Words().For("EP_Init"), EverythingTraps()) == 1, "EP_Init", "failed");
  for (const Export& exported : Exports()) PassBadPointers(exported);
  CallIntact(Words().For("EP_Kill"), EverythingTraps());
}

}  // namespace armour
