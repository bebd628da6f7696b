#include "device/numbering.hpp"

#include <array>
#include <span>
#include <string>

#include "fields/integer_text.hpp"
#include "frame/command_log.hpp"
#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"
#include "protocol/answer_check.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kLargoResultado = 80;

// One counter of the answer and the digits that it takes in the result.
struct Contador {
  std::size_t respuesta;  // 1 for Respuesta_1
  std::size_t digitos;
};
constexpr std::array kContadores = {
    Contador{1, 5}, Contador{2, 8},  Contador{3, 8},  Contador{4, 8},
    Contador{5, 8}, Contador{6, 5},  Contador{7, 5},  Contador{8, 8},
    Contador{9, 8}, Contador{10, 8}, Contador{11, 8},
};

// The model that has no counter at the second place: zeros stand for it.
constexpr std::string_view kModeloSinSegundo = "TM300AF";
constexpr std::string_view kCerosDelModelo = "0000000000000";
constexpr std::array kContadoresDelModelo = {
    Contador{1, 8}, Contador{3, 8}, Contador{4, 8}, Contador{5, 8},  Contador{6, 8},
    Contador{7, 8}, Contador{8, 8}, Contador{9, 8}, Contador{10, 8},
};

// What is no number keeps its place as zeros, so that the counters behind it stay where the host looks
// for them.
std::string Reunir(const Estado& estado, std::span<const Contador> contadores) {
  std::string texto;
  for (const auto& contador : contadores) {
    texto += EnteroRelleno(estado.Respuesta[contador.respuesta - 1], contador.digitos);
  }
  return texto;
}

}  // namespace

std::int32_t Numeracion(Biblioteca& k, char* resultado) {
  EscribirLog(k, " - Comando : EP_Numeracion");
  if (Mandar(k, Comando('*').Campo("A")) != kExito) return kFracaso;
  SepararRespuesta(k);
  const auto texto = k.estado.ModeloNombre == kModeloSinSegundo
                         ? std::string(kCerosDelModelo) + Reunir(k.estado, kContadoresDelModelo)
                         : Reunir(k.estado, kContadores);
  DevolverCadena(resultado, texto, kLargoResultado);
  return kExito;
}

}  // namespace kestra
