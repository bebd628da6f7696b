#include "documents/opening.hpp"

#include <utility>

#include "documents/document_kinds.hpp"
#include "fields/text_field.hpp"
#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"

namespace kestra {
namespace {

constexpr std::size_t kLargoDocumento = 11;

std::string Linea(Biblioteca& k, const char* linea) {
  const auto& estado = k.estado;
  auto campo =
      CampoTexto(k, LeerCadena(linea, 40),
                 LargoSegunFamilia(estado, estado.LonDatosClienteT, estado.LonDatosClienteF));
  return Limpiar(estado, std::move(campo));
}

}  // namespace

Apertura PrepararApertura(Biblioteca& k, const ArgumentosDeApertura& a) {
  Apertura apertura;
  apertura.letra = LeerCadena(a.letra, 1);
  apertura.tipo = LeerCadena(a.tipo, 2);
  apertura.documento_tipo = LeerCadena(a.documento_tipo, 6);
  apertura.documento_numero = RellenarIzquierda(
      Recortar(LeerCadena(a.documento_numero, kLargoDocumento)), kLargoDocumento, '0');
  apertura.responsabilidad = LeerCadena(a.responsabilidad, 1);
  apertura.linea1 = Linea(k, a.linea1);
  apertura.linea2 = Linea(k, a.linea2);
  apertura.domicilio = Linea(k, a.domicilio);
  apertura.linea4 = Linea(k, a.linea4);
  apertura.linea5 = Linea(k, a.linea5);
  apertura.linea6 = Linea(k, a.linea6);
  apertura.linea7 = Linea(k, a.linea7);
  apertura.copias = a.copias;
  return apertura;
}

std::string PreguntaDeApertura(std::string_view nombre, const Apertura& a) {
  return LlamadaEntreComillas(nombre, {a.tipo, a.letra, a.linea1, a.linea2, a.documento_tipo,
                                       a.documento_numero, a.responsabilidad, a.domicilio, a.linea4,
                                       a.linea5, a.linea6, a.linea7, std::to_string(a.copias)});
}

void PonerDomicilio(Apertura& apertura) {
  if (apertura.domicilio == std::string_view(&kCampoVacio, 1)) apertura.domicilio = "SIN DOMICILIO";
}

void PonerCopias(Apertura& apertura) {
  if (apertura.copias == 0) apertura.copias = 1;
}

Comando ComandoDeApertura(const Estado& estado, const Apertura& apertura,
                          const MarcasDeApertura& marcas) {
  return Comando(kAbrir.factura)
      .Campo(marcas.letra_de_tipo)
      .Campo("C")
      .Campo(apertura.letra)
      .Campo(marcas.copias_del_host ? apertura.copias : 1)
      .Campo(marcas.campo_5)
      .Campo(estado.CPI)
      .Campo(marcas.iva_emisor)
      .Campo(apertura.responsabilidad)
      .Campo(apertura.linea1)
      .Campo(apertura.linea2)
      .Campo(Recortar(apertura.documento_tipo))
      .Campo(apertura.documento_numero)
      .Campo(marcas.campo_13)
      .Campo(apertura.domicilio)
      .Campo(apertura.linea4)
      .Campo(apertura.linea5)
      .Campo(apertura.linea6)
      .Campo(apertura.linea7)
      .Campo("C");
}

}  // namespace kestra
