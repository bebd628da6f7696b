#include "programs/stories.hpp"

#include <fenv.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "campaigns/torture/under_way.hpp"
#include "exports/callbacks.hpp"
#include "hostile/posix/call.hpp"
#include "hostile/posix/printer.hpp"
#include "hostile/posix/shop.hpp"
#include "kestra/kestra.h"

namespace kestra::hostile {
namespace {

// A host whose dialogs call everything, by themselves and on another thread, and leave the
// floating-point unit trapping.
struct Host {
  bool calls_back = false;
  std::int32_t answer = 6;
  int retries = 0;
  std::vector<std::string> texts{};

  void Opened(const char* text);
  std::int32_t Message(const char* text, const char* /*title*/, std::int32_t style) {
    Opened(text);
    return style == 0 ? 1 : answer;
  }
  std::int32_t Report(auto... /*shown*/) {
    Opened("report");
    return retries-- > 0 ? 1 : 0;
  }
  void MemoryFull() { Opened("memory full"); }
};

void CallEverything() {
  for (const Export& row : exports::Exports()) {
    if (row.nature == exports::Nature::kBeside) continue;
    const std::int32_t result = SaneCall(row);
    Expect(result == row.failed,
           std::string(row.name) + ": gave " + std::to_string(result) + " from within");
  }
}

void Host::Opened(const char* text) {
  texts.emplace_back(text);
  if (!calls_back) return;
  CallEverything();
  std::thread(CallEverything).join();
  ::feenableexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW | FE_INEXACT);
  ::fesetround(FE_DOWNWARD);
}

constexpr std::int32_t kYes = 6;
constexpr std::int32_t kNo = 7;

// A way to a dialog of each kind.
struct Way {
  std::string_view name;
  const char* settings;
  const char* printer;
  const char* fiscal;
  std::string_view call;
  std::int32_t answer;
  int retries;
  std::size_t dialogs;
  std::int32_t result;
};

constexpr std::array kWays{
    Way{"the question before a command", "MostrarComandos=1\r\n", "0000", "0600", "EP_CortaPapel",
        kYes, 0, 3, 0},
    Way{"a question that is answered no", "MostrarComandos=1\r\n", "0000", "0600",
        "EP_AbrirComprobanteFiscal", kNo, 0, 1, 1},
    Way{"the boxes around a frame", "MostrarComandos=2\r\n", "0000", "0600", "EP_ImprimirItem",
        kYes, 0, 2, 0},
    Way{"the listing of an answer", "MostrarRespuestas=1\r\n", "0000", "0600",
        "EP_ObtenerFechaHora", kYes, 0, 1, 0},
    Way{"the status report", "", "4000", "0600", "EP_ReporteX", kYes, 0, 1, 0},
    Way{"the report of a refusal", "", "0000", "0610", "EP_CerrarComprobanteFiscal", kYes, 0, 1, 1},
    Way{"the report that sends the command again", "", "4000", "0600", "EP_Numeracion", kYes, 2, 3,
        0},
    Way{"the warning of a nearly full memory", "", "0000", "0100", "EP_ReporteZ", kYes, 0, 1, 0},
    Way{"a field that does not fit", "EntDesc=0\r\n", "0000", "0600", "EP_ImprimirPago", kYes, 0, 1,
        0},
    Way{"a bad key while starting", "EntPrecio=x\r\n", "0000", "0600", "EP_Init", kYes, 0, 1, 1},
};

std::vector<std::string> Play(const Way& way, bool calls_back) {
  const torture::UnderWay mark(std::string(way.name), calls_back ? "calling back" : "quietly");
  Printer printer;
  const Shop shop(printer.Device(), way.settings);
  Host host{.calls_back = calls_back, .answer = way.answer, .retries = way.retries};
  const auto record = exports::RecordOf(host);
  if (way.call != "EP_Init") Find("EP_Init").call({});
  Kestra_DefinirOperador(&record);
  printer.SetStatus(way.printer, way.fiscal);
  const std::string name(way.name);
  const std::int32_t result = SaneCall(Find(way.call));
  Expect(::fegetexcept() == 0, name + ": the host has traps that it did not have");
  Expect(::fegetround() == FE_TONEAREST, name + ": the host has another rounding");
  Expect(result == way.result, name + ": gave " + std::to_string(result));
  Expect(host.texts.size() == way.dialogs,
         name + ": " + std::to_string(host.texts.size()) + " dialogs");
  Find("EP_Kill").call({});
  host.texts.push_back(std::to_string(printer.Frames()) + " frames");
  Expect(printer.Strays() == 0, name + ": bytes that are no frames came to the printer");
  TakeTheOperatorsPlace();
  return host.texts;
}

// Numbers and sums of frames depend on the time of day.
std::vector<std::string> WithoutNumbers(std::vector<std::string> texts) {
  for (std::string& text : texts) {
    const auto start = text.find('\x02');
    if (start != std::string::npos && start + 1 < text.size()) text[start + 1] = '#';
  }
  return texts;
}

}  // namespace

STORY(calls_from_within) {
  for (const Way& way : kWays) {
    const auto quiet = WithoutNumbers(Play(way, false));
    const auto noisy = WithoutNumbers(Play(way, true));
    Expect(quiet == noisy, std::string(way.name) + ": the call went another way");
  }
}

}  // namespace kestra::hostile
