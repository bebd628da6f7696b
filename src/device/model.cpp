#include "device/model.hpp"

#include <string>

#include "device/status_query.hpp"
#include "fields/text_field.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"
#include "protocol/answer_check.hpp"
#include "state/log.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kValuesLength = 64;
constexpr std::int32_t kModelLength = 14;
constexpr std::size_t kModelFields = 11;

Command ModelQuery() {
  return Command('*').Field("P");
}

}  // namespace

std::int32_t ValoresModelo(Library& library, char* result) {
  if (!ObtenerEstado(library)) return kFailure;
  const auto verdict = Send(library, ModelQuery());
  SepararRespuesta(library);
  std::string values;
  for (std::size_t i = 0; i < kModelFields; ++i) values += library.state.Respuesta[i];
  DevolverCadena(result, FixedWidth(values, kValuesLength), kValuesLength);
  return verdict;
}

std::int32_t AutodetectarModelo(Library& library, char* result) {
  if (!Confirm(library, "AutodetectarModelo()")) return kFailure;
  EscribirLog(library, " - Comando : EP_AutodetectarModelo()");
  const auto verdict = Send(library, ModelQuery());
  DevolverCadena(result, FixedWidth(library.state.Respuesta[kModelFields - 1], kModelLength),
                 kModelLength);
  return verdict;
}

}  // namespace kestra
