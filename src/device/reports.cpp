#include "device/operations.hpp"

#include <string>

#include "dialogs/conditions.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"
#include "protocol/answer_check.hpp"

namespace kestra {
namespace {

Command DailyReport(std::string_view letter) {
  return Command('9').Field(letter).Field("P");
}

}  // namespace

std::int32_t ReporteX(Library& library) {
  return Run(
      library,
      {.call = "EP_ReporteX()", .log = " - Comando : EP_ReporteX()", .command = DailyReport("X")});
}

std::int32_t ReporteZ(Library& library) {
  const auto result = Run(
      library,
      {.call = "EP_ReporteZ()", .log = " - Comando : EP_ReporteZ()", .command = DailyReport("Z")});
  // Judged by the last answer, whether or not this report was sent.
  if (library.state.BitFiscal[kMemoryNearlyFull] != kFalse) {
    library.platform.GetOperator().MemoryFull();
  }
  return result;
}

std::int32_t ReporteZporNumeros(Library& library, std::int32_t first, std::int32_t last,
                                std::int32_t third) {
  const auto from = std::to_string(first);
  const auto to = std::to_string(last);
  return Run(library, {.call = Call("EP_ReporteZporNumeros", {from, to, std::to_string(third)}),
                       // Kept as is: "Ep_", which readers of old logs look for.
                       .log = " - Comando : " + Call("Ep_ReporteZporNumeros", {from, to}),
                       .command = Command(';').Field(from).Field(to).Field("D")});
}

std::int32_t ReporteZporFechas(Library& library, const char* from, const char* to,
                               std::int32_t third) {
  const auto first = LeerCadena(library.texts, from, 6);
  const auto last = LeerCadena(library.texts, to, 6);
  const auto verdict =
      Run(library, {.call = Call("EP_ReporteZporFechas", {first, last, std::to_string(third)}),
                    .log = " - Comando : " + Call("EP_ReporteZporFechas", {first}),
                    .command = Command(':').Field(first).Field(last).Field("D")});
  if (library.certainty.settings.ModoSeguro == 1) return verdict;
  // Kept as is: the result is the listing's verdict on the last answer, asked or not.
  return ListarRespuestas(library) ? kSuccess : kFailure;
}

}  // namespace kestra
