#include "device/numbering.hpp"

#include <array>
#include <span>
#include <string>

#include "fields/integer_text.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"
#include "protocol/answer_check.hpp"
#include "state/log.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kResultLength = 80;

// One counter of the answer and the digits that it takes in the result.
struct Counter {
  std::size_t answer;  // 1 for Respuesta_1
  std::size_t digits;
};
constexpr std::array kCounters = {
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

std::int32_t Numeracion(Library& library, char* result) {
  EscribirLog(library, " - Comando : EP_Numeracion");
  if (Send(library, Command('*').Field("A")) != kSuccess) return kFailure;
  SepararRespuesta(library);
  const auto text = library.state.ModeloNombre == kModelWithoutSecond
                        ? std::string(kModelZeros) + Gather(library.state, kModelCounters)
                        : Gather(library.state, kCounters);
  DevolverCadena(result, text, kResultLength);
  return kSuccess;
}

}  // namespace kestra
