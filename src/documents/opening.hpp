#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "frame/library.hpp"
#include "protocol/command.hpp"

namespace kestra {

// The arguments of the two openings, as the host passes them.
struct ArgumentosDeApertura {
  const char* tipo;    // 2 bytes
  const char* letra;   // 1
  const char* linea1;  // 40, as all the lines
  const char* linea2;
  const char* documento_tipo;    // 6
  const char* documento_numero;  // 11
  const char* responsabilidad;   // 1
  const char* domicilio;
  const char* linea4;
  const char* linea5;
  const char* linea6;
  const char* linea7;
  std::int32_t copias;
};

// The same, read and made ready for the printer.
struct Apertura {
  std::string tipo;
  std::string letra;
  std::string linea1;
  std::string linea2;
  std::string documento_tipo;
  std::string documento_numero;  // 11 digits
  std::string responsabilidad;
  std::string domicilio;
  std::string linea4;
  std::string linea5;
  std::string linea6;
  std::string linea7;
  std::int32_t copias = 0;
};

// What distinguishes one kind of document from another in the opening command.
struct MarcasDeApertura {
  std::string_view letra_de_tipo;
  bool copias_del_host;  // else "1"
  std::string_view campo_5;
  std::string_view iva_emisor;
  std::string_view campo_13;
};

// Reads the arguments and fits the lines to the customer-data length of the family.
Apertura PrepararApertura(Biblioteca& k, const ArgumentosDeApertura& argumentos);

// What the operator is asked: all the arguments, as prepared so far.
std::string PreguntaDeApertura(std::string_view nombre, const Apertura& apertura);

// An address that the fitting left empty becomes "SIN DOMICILIO".
void PonerDomicilio(Apertura& apertura);

// Zero copies mean one.
void PonerCopias(Apertura& apertura);

Comando ComandoDeApertura(const Estado& estado, const Apertura& apertura,
                          const MarcasDeApertura& marcas);

}  // namespace kestra
