#include "device/operations.hpp"

#include <array>
#include <span>
#include <string>

#include "dialogs/conditions.hpp"
#include "fields/number_field.hpp"
#include "fields/text_field.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"
#include "protocol/answer_check.hpp"
#include "protocol/exchange.hpp"
#include "state/log.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kValuesLength = 64;
constexpr std::int32_t kModelLength = 14;
constexpr std::size_t kModelFields = 11;

Command ModelQuery() {
  return Command('*').Field("P");
}

constexpr std::int32_t kResultLength = 80;

// One counter of the answer and the digits that it takes in the result.
struct Counter {
  std::size_t answer;  // 1 for Respuesta_1
  std::size_t digits;
};
constexpr std::array kResultCounters = {
    Counter{1, 5}, Counter{2, 8}, Counter{3, 8}, Counter{4, 8},  Counter{5, 8},  Counter{6, 5},
    Counter{7, 5}, Counter{8, 8}, Counter{9, 8}, Counter{10, 8}, Counter{11, 8},
};

// The model that has no counter at the second place: zeros stand for it.
constexpr std::string_view kModelWithoutSecond = "TM300AF";
constexpr std::string_view kModelZeros = "0000000000000";
constexpr std::array kModelCounters = {
    Counter{1, 8}, Counter{3, 8}, Counter{4, 8}, Counter{5, 8},  Counter{6, 8},
    Counter{7, 8}, Counter{8, 8}, Counter{9, 8}, Counter{10, 8},
};

// What is no number keeps its place as zeros, so that the counters behind it stay where the host looks
// for them.
std::string Gather(const State& state, std::span<const Counter> counters) {
  std::string text;
  for (const auto& counter : counters) {
    text += PaddedInteger(state.Respuesta[counter.answer - 1], counter.digits);
  }
  return text;
}

}  // namespace

bool ObtenerEstado(Library& library) {
  const auto& state = library.state;
  EscribirLog(library, " - Comando : ObtenerEstado()");
  const auto command = Command('*').Field("A");
  AnnounceQuery(library, command);
  if (!Enviar(library, command.Bytes())) return false;
  SepararRespuesta(library);
  DecodificarEstados(library);
  // Kept as is: the query judges by the summary bits, a command by its own list of conditions.
  if (state.BitImpresora[kSummary] == kFalse && state.BitFiscal[kSummary] == kFalse) return true;
  if (state.ErrorMostrar == 1) {
    for (const auto message : StatusMessages(state.BitImpresora, state.BitFiscal)) {
      library.platform.GetOperator().Message(message, "", kBoxOk);
    }
  }
  // In the safe mode a condition that was told keeps nobody from an answer that is there.
  return library.certainty.settings.ModoSeguro == 1;
}

std::int32_t ValoresModelo(Library& library, char* result) {
  if (!ObtenerEstado(library)) return kFailure;
  return Run(library, {.command = ModelQuery(), .after = [&] {
                         SepararRespuesta(library);
                         std::string values;
                         for (std::size_t i = 0; i < kModelFields; ++i) {
                           values += library.state.Respuesta[i];
                         }
                         DevolverCadena(library.texts, result, FixedWidth(values, kValuesLength),
                                        kValuesLength);
                       }});
}

std::int32_t AutodetectarModelo(Library& library, char* result) {
  const auto& model = library.state.Respuesta[kModelFields - 1];
  return Run(library, {.call = "AutodetectarModelo()",
                       .log = " - Comando : EP_AutodetectarModelo()",
                       .command = ModelQuery(),
                       .after = [&] {
                         DevolverCadena(library.texts, result, FixedWidth(model, kModelLength),
                                        kModelLength);
                       }});
}

std::int32_t Numeracion(Library& library, char* result) {
  const auto verdict =
      Run(library, {.log = " - Comando : EP_Numeracion", .command = Command('*').Field("A")});
  if (verdict != kSuccess) return kFailure;
  SepararRespuesta(library);
  const auto& state = library.state;
  const auto text = state.ModeloNombre == kModelWithoutSecond
                        ? std::string(kModelZeros) + Gather(state, kModelCounters)
                        : Gather(state, kResultCounters);
  DevolverCadena(library.texts, result, text, kResultLength);
  return kSuccess;
}

}  // namespace kestra
