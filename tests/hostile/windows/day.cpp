// Every export in every habit of a host: on a day that goes well, on one that goes wrong, and on none.

#include <windows.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "library.hpp"
#include "programs/stories.hpp"

namespace armour {
namespace {

// A call with its arguments, separated by bars, if they are not those of the table. What it gives when all
// goes well.
struct Step {
  std::string_view name;
  std::string_view arguments = "";
  std::int32_t result = 0;
};

constexpr std::array kStart = {
    Step{"EP_SetEncabezado"},      Step{"EP_GetEncabezado"}, Step{"EP_ObtenerFechaHora"},
    Step{"EP_AutodetectarModelo"}, Step{"EP_ValoresModelo"}, Step{"EP_Numeracion"},
};
constexpr std::array kDocuments = {
    Step{"EP_AbrirComprobanteFiscal"},
    Step{"EP_ImprimirTextoFiscal"},
    Step{"EP_ImprimirItem"},
    Step{"EP_ImprimirTextoFiscalInterna"},
    Step{"EP_ImprimirItem", "Diccionario|2|4500|21|0|||"},
    Step{"EP_AnularItem", "Diccionario|1|4500|21|0|||"},
    Step{"EP_DescuentoGeneral"},
    Step{"EP_RecargoGeneral"},
    Step{"EP_EspecificarPercepcionGlobal"},
    Step{"EP_AjusteRedondeo"},
    Step{"EP_ImprimirPago"},
    Step{"EP_CerrarComprobanteFiscal"},
    Step{"EP_AbrirComprobanteFiscal"},
    Step{"EP_Cancelar"},
    Step{"EP_AbrirComprobanteNoFiscal"},
    Step{"EP_ImprimirTextoNoFiscal"},
    Step{"EP_CerrarComprobanteNoFiscal"},
};
constexpr std::array kEnd = {
    Step{"EP_AbrirCajonDeDinero"}, Step{"EP_AvanzaPapel"}, Step{"EP_CortaPapel"},
    Step{"EP_ReporteX"},           Step{"EP_ReporteZ"},    Step{"EP_ReporteZporNumeros"},
    Step{"EP_ReporteZporFechas"},
};
// These give the same result in every state of the shop, as do the exports that do nothing.
constexpr std::array kAlways = {
    Step{"DllRegisterServer"}, Step{"DllUnregisterServer"},
    Step{"DllInstall", "0", static_cast<std::int32_t>(0x80070057)},        // no such part
    Step{"DllGetClassObject", "", static_cast<std::int32_t>(0x80040111)},  // no such class
};
// What the printer of this day refuses, or nobody sends.
constexpr std::array kRefused = {
    Step{"EP_ImprimirItem", "Resma|1|1|21|0|||", 1},
    Step{"EP_CerrarComprobanteFiscal", "FC|A", 1},
    Step{"EP_AbrirComprobanteFiscal", "XX|A|||||||||||1", 1},
    Step{"EP_AbrirComprobanteNoFiscalHomologado", "XX|A|||||||||||1", 1},
    Step{"EP_CerrarComprobanteNoFiscalHomologado", "NC|A", 1},
    Step{"EP_AbrirCajonDeDinero", "3", 1},
};

enum class World { kPrinter, kNoPrinter, kNoSettings };

// The step's call, with each text and each result on a page of its own.
class Call {
 public:
  explicit Call(const Step& step) : step_(step), pages_(kMost) {
    const auto& row = Find(step.name);
    const auto words = step.arguments.empty() ? row.sane : step.arguments;
    for (const auto& argument : kestra::exports::Arguments(row, words)) Add(argument);
  }

  [[nodiscard]] Target Get() const { return words_.For(step_.name); }

  void ExpectNothingElseWritten() const {
    for (std::size_t i = 0; i < used_; ++i) {
      if (!results_[i]) continue;
      Expect(pages_[i].RestUntouched(), step_.name, "wrote outside of its result");
    }
  }

 private:
  static constexpr std::size_t kMost = kestra::exports::kMostParameters;

  void Add(const kestra::exports::Argument& argument) {
    if (argument.kind == Kind::kInteger || argument.kind == Kind::kRoom) {
      words_.Integer(std::stoi(argument.words));
    } else if (argument.kind == Kind::kAmount) {
      words_.Number(std::bit_cast<std::uint64_t>(std::stod(argument.words)));
    } else {
      words_.Address(Place(argument));
    }
  }

  const char* Place(const kestra::exports::Argument& argument) {
    constexpr std::size_t kSizeOfAClass = 16;
    LonePage& page = pages_[used_];
    results_[used_] = argument.kind == Kind::kResult;
    if (results_[used_++]) return page.RoomAt(0, argument.size);
    if (argument.kind == Kind::kClass) return page.AtEnd(std::string(kSizeOfAClass, '\x77'));
    return page.AtEnd(argument.words);
  }

  const Step& step_;
  std::vector<LonePage> pages_;
  std::array<bool, kMost> results_{};
  std::size_t used_ = 0;
  Words words_;
};

// Every other habit leaves the stack of 32 bits at another of its four places.
std::uintptr_t Misalignment(const Habit& habit) {
#ifdef __i386__
  return static_cast<std::uintptr_t>(&habit - Habits().data()) % 4 * 4;
#else
  (void)habit;
  return 0;
#endif
}

std::int32_t Do(const Step& step, const Habit& habit) {
  const Call call(step);
  const auto result = CallIntact(call.Get(), habit, Misalignment(habit));
  call.ExpectNothingElseWritten();
  return result;
}

void ExpectResult(const Step& step, const Habit& habit, std::int32_t wanted) {
  const auto result = Do(step, habit);
  if (result == wanted) return;
  Fail(step.name, std::string("gave ")
                      .append(std::to_string(result))
                      .append(" for ")
                      .append(step.arguments)
                      .append(", ")
                      .append(habit.name));
}

template <class Steps>
void Play(const Steps& steps, const Habit& habit, World world) {
  for (const Step& step : steps) {
    const bool adjusts = step.name == "EP_AjusteRedondeo";  // says that it went well, come what may
    const bool fails = world != World::kPrinter && !adjusts;
    ExpectResult(step, habit, fails ? 1 : step.result);
  }
}

// Each day's later than the one before it: a printer's clock does not go back behind its last closing.
std::string TomorrowMorning() {
  static int day = 10;
  return "9901" + std::to_string(day++) + "|103000";
}

void PlayDay(const Habit& habit, World world) {
  ExpectResult({"EP_Init"}, habit, world == World::kNoSettings ? 0 : 1);
  ExpectResult({"DllCanUnloadNow"}, habit, world == World::kNoSettings ? 0 : 1);
  Play(kStart, habit, world);
  Play(kDocuments, habit, world);
  Play(kEnd, habit, world);
  const std::string morning = TomorrowMorning();
  Play(std::array{Step{"EP_CambiarFechaHora", morning}}, habit, world);
  Play(kRefused, habit, world);
  for (const Step& step : kAlways) ExpectResult(step, habit, step.result);
  for (const Export& row : Exports()) {
    if (row.nature == Nature::kFixed) ExpectResult({row.name}, habit, 0);
    if (row.nature == Nature::kReport)
      Expect(Do({row.name}, habit) >= 0, row.name, "was turned away");
  }
  ExpectResult({"EP_Kill"}, habit, 0);
  ExpectResult({"DllCanUnloadNow"}, habit, 0);
}

// Giving the operator's place up and taking it again, in this habit too.
void ChangeOperators(const Habit& habit) {
  CallIntact(Words().Address(nullptr).For("Kestra_DefinirOperador"), habit, Misalignment(habit));
  TakeTheOperatorsPlace();
}

void PlayDays(World world) {
  LoadLibraryUnderTest();
  TakeTheOperatorsPlace();
  for (const Habit& habit : Habits()) {
    const int shown = Shown();
    PlayDay(habit, world);
    Expect(Shown() > shown, habit.name, "nothing was shown to the operator all day");
    ChangeOperators(habit);
  }
}

template <class Steps>
bool Has(const Steps& steps, std::string_view name) {
  return std::any_of(steps.begin(), steps.end(), [&](const Step& s) { return s.name == name; });
}

bool IsCalledByDay(std::string_view name) {
  constexpr std::array kElsewhere = {"EP_Init", "EP_Kill", "DllCanUnloadNow", "EP_CambiarFechaHora",
                                     "Kestra_DefinirOperador"};
  return Has(kStart, name) || Has(kDocuments, name) || Has(kEnd, name) || Has(kAlways, name) ||
         Has(kRefused, name) || Find(name).nature == Nature::kFixed ||
         Find(name).nature == Nature::kReport ||
         std::any_of(kElsewhere.begin(), kElsewhere.end(),
                     [&](auto other) { return other == name; });
}

}  // namespace

STORY(table) {
  LoadLibraryUnderTest();
  const auto names = NamesInFile();
  Expect(names.size() == Exports().size(), "table", "the file exports another count");
  for (const auto name : names) {
    const auto& rows = Exports();
    const bool known =
        std::any_of(rows.begin(), rows.end(), [&](const Export& row) { return row.name == name; });
    Expect(known, name, "is not in the table");
    Expect(known && IsCalledByDay(name), name, "is not called");
  }
}

STORY(day_with_a_printer) {
  PlayDays(World::kPrinter);
}

STORY(day_without_a_printer) {
  PlayDays(World::kNoPrinter);
}

STORY(day_without_settings) {
  PlayDays(World::kNoSettings);
}

}  // namespace armour
