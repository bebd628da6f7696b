#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kestra {

// The sequence numbers that the printer takes.
constexpr std::int16_t kPrimeraSecuencia = 32;
constexpr std::int16_t kUltimaSecuencia = 70;

struct Secuencia {
  std::int16_t actual = 0;    // NroSecuencia
  std::int16_t anterior = 0;  // NroSecuenciaAnterior: the last one that was seeded anew
};

// The next sequence number. Outside the printer's range it is seeded anew from `segundos`, the
// seconds of the current minute, away from the one seeded last.
Secuencia SiguienteSecuencia(Secuencia secuencia, int segundos);

// Start byte, sequence byte, command, end byte.
std::string Enmarcar(std::int16_t secuencia, std::string_view comando);

// Four upper-case hexadecimal digits: the sum of the bytes modulo 65536.
std::string SumaDeControl(std::string_view trama);

// The part of the collected bytes that is one answer: through the fourth character behind the first
// end byte. 0: the answer is not whole yet.
std::size_t LargoDeRespuesta(std::string_view recibido);

// The two characters behind the first start byte; shorter when they are not there.
std::string_view EncabezadoDeRespuesta(std::string_view respuesta);

// From the start byte through the checksum, without the noise before.
std::string RecortarRespuesta(std::string_view respuesta);

}  // namespace kestra
