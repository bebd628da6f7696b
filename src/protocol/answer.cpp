#include "protocol/answer.hpp"

#include "protocol/control_bytes.hpp"

namespace kestra {

std::string SiguienteCampo(std::string& respuestas) {
  const auto separador = respuestas.find(kFs);
  const auto desde = separador == std::string::npos ? 0 : separador + 1;
  auto hasta = respuestas.find(kFs, desde);
  if (hasta == std::string::npos) hasta = respuestas.find(kEtx, desde);
  if (hasta == std::string::npos) return {};
  auto campo = respuestas.substr(desde, hasta - desde);
  respuestas.erase(0, hasta);  // the separator stays: the next field begins at it
  return campo;
}

Campos CortarCampos(std::string& respuestas) {
  Campos campos;
  for (auto& campo : campos) campo = SiguienteCampo(respuestas);
  return campos;
}

std::string TextoDeListado(const Campos& campos) {
  std::string texto = "Respuestas al ultimo comando: ";
  texto.append(2, kCr);
  for (std::size_t k = 0; k < campos.size(); ++k) {
    if (k != 0) texto += kCr;
    texto.append("Respuesta_").append(std::to_string(k + 1)).append(": ").append(campos[k]);
  }
  return texto;
}

}  // namespace kestra
