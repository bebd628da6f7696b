#include "protocol/packet.hpp"

#include "protocol/control_bytes.hpp"

namespace kestra {
namespace {

bool EnRango(int secuencia) {
  return secuencia >= kPrimeraSecuencia && secuencia <= kUltimaSecuencia;
}

int MitadAlPar(int valor) {
  const int mitad = valor / 2;
  return valor % 2 != 0 && mitad % 2 != 0 ? mitad + 1 : mitad;
}

}  // namespace

Secuencia SiguienteSecuencia(Secuencia secuencia, int segundos) {
  int siguiente = secuencia.actual + 1;
  if (EnRango(siguiente)) return {static_cast<std::int16_t>(siguiente), secuencia.anterior};
  while (!EnRango(siguiente) || siguiente == secuencia.anterior) {
    const int antes = siguiente;
    siguiente += segundos;
    if (siguiente < 35) siguiente += 35;
    if (siguiente >= 71) siguiente = MitadAlPar(siguiente);
    // A second that leads back to the number to avoid would do so until the next one: take that.
    if (siguiente == antes) segundos = (segundos + 1) % 60;
  }
  return {static_cast<std::int16_t>(siguiente), static_cast<std::int16_t>(siguiente)};
}

std::string Enmarcar(std::int16_t secuencia, std::string_view comando) {
  return std::string{kStx, static_cast<char>(secuencia)}.append(comando).append(1, kEtx);
}

std::string SumaDeControl(std::string_view trama) {
  unsigned suma = 0;
  for (const char c : trama) suma += static_cast<unsigned char>(c);
  std::string digitos(kChecksumDigits, '0');
  for (auto i = digitos.size(); i > 0; --i, suma /= 16) {
    digitos[i - 1] = "0123456789ABCDEF"[suma % 16];
  }
  return digitos;
}

std::size_t LargoDeRespuesta(std::string_view recibido) {
  const auto fin = recibido.find(kEtx);
  if (fin == std::string_view::npos) return 0;
  const auto largo = fin + 1 + kChecksumDigits;
  return recibido.size() >= largo ? largo : 0;
}

std::string_view EncabezadoDeRespuesta(std::string_view respuesta) {
  const auto inicio = respuesta.find(kStx);
  if (inicio == std::string_view::npos) return {};
  return respuesta.substr(inicio + 1, 2);
}

std::string RecortarRespuesta(std::string_view respuesta) {
  const auto largo = LargoDeRespuesta(respuesta);
  if (largo != 0) respuesta = respuesta.substr(0, largo);
  const auto inicio = respuesta.find(kStx);
  return std::string(inicio == std::string_view::npos ? respuesta : respuesta.substr(inicio));
}

}  // namespace kestra
