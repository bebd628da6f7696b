#include "fields/text_field.hpp"

#include <algorithm>
#include <limits>

#include "frame/failure.hpp"

namespace kestra {
namespace {

// Accented letters the printer has, at their places in its own table.
constexpr std::string_view kAceptados = "\xF0\xF1\xF2\xF4\xF8";

bool LoAceptaLaImpresora(char caracter) {
  const auto codigo = static_cast<unsigned char>(caracter);
  return (codigo >= 32 && codigo <= 127) || kAceptados.find(caracter) != std::string_view::npos;
}

}  // namespace

std::string_view Recortar(std::string_view texto) {
  const auto primero = texto.find_first_not_of(' ');
  if (primero == std::string_view::npos) return {};
  return texto.substr(primero, texto.find_last_not_of(' ') - primero + 1);
}

std::string Fijar(std::string_view texto, std::size_t longitud) {
  std::string fijo(texto.substr(0, longitud));
  fijo.resize(longitud, ' ');
  return fijo;
}

std::string RellenarIzquierda(std::string_view texto, std::size_t longitud, char relleno) {
  const auto faltan = longitud > texto.size() ? longitud - texto.size() : 0;
  return std::string(faltan, relleno).append(texto);
}

std::string LimpiarCaracteres(std::string texto) {
  std::replace_if(
      texto.begin(), texto.end(), [](char c) { return !LoAceptaLaImpresora(c); }, '-');
  return texto;
}

std::string AjustarTexto(std::string_view texto, std::int32_t longitud) {
  if (longitud > std::numeric_limits<std::int16_t>::max() ||
      longitud < std::numeric_limits<std::int16_t>::min()) {
    throw Desbordamiento();
  }
  const auto recortado = Recortar(texto);
  if (recortado.empty()) return {kCampoVacio};
  if (longitud < 0) throw LlamadaNoValida();
  return Fijar(recortado, static_cast<std::size_t>(longitud));
}

}  // namespace kestra
