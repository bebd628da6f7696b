// Every export in every habit of a host: on a day that goes well, on one that goes wrong, and on none.

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "exports.hpp"
#include "memory.hpp"
#include "stories.hpp"

namespace armour {
namespace {

// A call with its arguments, separated by bars; results need none. What it gives when all goes well.
struct Step {
  std::string_view name;
  std::string_view arguments;
  std::int32_t result = 0;
};

constexpr std::string_view kInvoice =
    "FC|A|Libreria S.R.L.||CUIT|30000000007|I|Belgrano 1234|||||1";

constexpr std::array kStart = {
    Step{"EP_SetEncabezado", "Gracias por su compra|1|0"},
    Step{"EP_GetEncabezado", "1"},
    Step{"EP_ObtenerFechaHora", ""},
    Step{"EP_AutodetectarModelo", ""},
    Step{"EP_ValoresModelo", ""},
    Step{"EP_Numeracion", ""},
};
constexpr std::array kDocuments = {
    Step{"EP_AbrirComprobanteFiscal", kInvoice},
    Step{"EP_ImprimirTextoFiscal", "Oferta"},
    Step{"EP_ImprimirItem", "Resma|10|320|21|0|Caja cerrada||"},
    Step{"EP_ImprimirTextoFiscalInterna", "Oferta"},
    Step{"EP_ImprimirItem", "Diccionario|2|4500|21|0|||"},
    Step{"EP_AnularItem", "Diccionario|1|4500|21|0|||"},
    Step{"EP_DescuentoGeneral", "Descuento|200"},
    Step{"EP_RecargoGeneral", "Recargo|100"},
    Step{"EP_EspecificarPercepcionGlobal", "Percepcion|150|0|O"},
    Step{"EP_AjusteRedondeo", "9000"},
    Step{"EP_ImprimirPago", "Efectivo|30000"},
    Step{"EP_CerrarComprobanteFiscal", "FC|A"},
    Step{"EP_AbrirComprobanteFiscal", kInvoice},
    Step{"EP_Cancelar", ""},
    Step{"EP_AbrirComprobanteNoFiscal", ""},
    Step{"EP_ImprimirTextoNoFiscal", "Retirar por deposito"},
    Step{"EP_CerrarComprobanteNoFiscal", ""},
};
constexpr std::array kEnd = {
    Step{"EP_AbrirCajonDeDinero", "1"},
    Step{"EP_AvanzaPapel", "2"},
    Step{"EP_CortaPapel", ""},
    Step{"EP_ReporteX", ""},
    Step{"EP_ReporteZ", ""},
    Step{"EP_ReporteZporNumeros", "1|1|0"},
    Step{"EP_ReporteZporFechas", "200101|991231|0"},
};
// Those that any state of the shop gives the same result to.
constexpr std::array kAlways = {
    Step{"EP_Chequear_Error", ""},
    Step{"EP_ReimprimirComprobante", ""},
    Step{"EP_Configuracion", "1"},
    Step{"EP_ConsultaMemoria", "1"},
    Step{"EP_Copias", "1"},
    Step{"EP_ImpuestoInternoFijo", "1"},
    Step{"EP_ImpuestoInternoPorMonto", "1"},
    Step{"EP_InformacionRemito", "1"},
    Step{"EP_Inicializacion", "1"},
    Step{"EP_Memoria", "1"},
    Step{"EP_DescuentoUltimoItem", "1|2|3"},
    Step{"EP_ImprimirItemEnRemito", "1|2|3"},
    Step{"EP_DatosCliente", "1|2|3|4|5"},
    Step{"DllRegisterServer", ""},
    Step{"DllUnregisterServer", ""},
    Step{"DllGetClassObject", "|", static_cast<std::int32_t>(0x80040111)},  // no such class
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

std::vector<std::string> Split(std::string_view text) {
  std::vector<std::string> parts(1);
  for (const char byte : text) {
    if (byte == '|') {
      parts.emplace_back();
    } else {
      parts.back() += byte;
    }
  }
  return parts;
}

std::uint64_t BitsOf(const std::string& number) {
  const double value = std::stod(number);
  std::uint64_t bits = 0;
  static_assert(sizeof bits == sizeof value);
  std::copy_n(reinterpret_cast<const char*>(&value), sizeof bits, reinterpret_cast<char*>(&bits));
  return bits;
}

// The step's call, with each text and each result on a page of its own.
class Call {
 public:
  explicit Call(const Step& step) : step_(step), pages_(kMost) {
    const auto written = Split(step.arguments);
    std::size_t next = 0;
    for (const Parameter& parameter : ParametersOf(Find(step.name))) {
      Add(parameter, parameter.kind == 'o' ? std::string() : written.at(next++));
    }
  }

  [[nodiscard]] Target Get() const { return words_.For(step_.name); }

  void ExpectNothingElseWritten() const {
    for (std::size_t i = 0; i < used_; ++i) {
      if (!results_[i]) continue;
      Expect(pages_[i].RestUntouched(), step_.name, "wrote outside of its result");
    }
  }

 private:
  static constexpr std::size_t kMost = 13;

  void Add(const Parameter& parameter, std::string text) {
    if (parameter.kind == 'i') {
      words_.Integer(std::stoi(text));
    } else if (parameter.kind == 'd') {
      words_.Number(BitsOf(text));
    } else {
      words_.Address(Place(parameter, std::move(text)));
    }
  }

  const char* Place(const Parameter& parameter, std::string text) {
    constexpr std::size_t kSizeOfAClass = 16;
    LonePage& page = pages_[used_];
    results_[used_++] = parameter.kind == 'o';
    if (parameter.kind == 'o') return page.RoomAtFront(parameter.size);
    if (parameter.kind == 'g') return page.AtEnd(std::string(kSizeOfAClass, '\x77'));
    if (parameter.kind == 'z') return page.AtEnd(text + '\0');
    text.resize(parameter.size, ' ');
    return page.AtEnd(text);
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
  ExpectResult({"EP_Init", ""}, habit, world == World::kNoSettings ? 0 : 1);
  ExpectResult({"DllCanUnloadNow", ""}, habit, world == World::kNoSettings ? 0 : 1);
  Play(kStart, habit, world);
  Play(kDocuments, habit, world);
  Play(kEnd, habit, world);
  const std::string morning = TomorrowMorning();
  Play(std::array{Step{"EP_CambiarFechaHora", morning}}, habit, world);
  Play(kRefused, habit, world);
  for (const Step& step : kAlways) ExpectResult(step, habit, step.result);
  ExpectResult({"EP_Kill", ""}, habit, 0);
  ExpectResult({"DllCanUnloadNow", ""}, habit, 0);
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
         Has(kRefused, name) || std::any_of(kElsewhere.begin(), kElsewhere.end(), [&](auto other) {
           return other == name;
         });
}

}  // namespace

void EveryExportIsInTheTable() {
  LoadLibraryUnderTest();
  const auto names = NamesInFile();
  Expect(names.size() == Exports().size(), "table", "the file exports another count");
  for (const auto name : names) {
    const auto& rows = Exports();
    const bool known =
        std::any_of(rows.begin(), rows.end(), [&](const Export& row) { return row.name == name; });
    Expect(known, name, "is not in the table");
    Expect(IsCalledByDay(name), name, "is not called");
  }
}

void ADayWithAPrinter() {
  PlayDays(World::kPrinter);
}

void ADayWithoutAPrinter() {
  PlayDays(World::kNoPrinter);
}

void ADayWithoutSettings() {
  PlayDays(World::kNoSettings);
}

}  // namespace armour
