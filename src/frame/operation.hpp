#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "fields/number_field.hpp"
#include "frame/library.hpp"
#include "protocol/command.hpp"

namespace kestra {

// What every operation is made of: ask, log, build, send.

constexpr std::int32_t kExito = 0;
constexpr std::int32_t kFracaso = 1;

// "EP_X(a,b)", as the operator is asked about a call.
std::string Llamada(std::string_view nombre, std::initializer_list<std::string_view> argumentos);

// "EP_X('a','b')"
std::string LlamadaEntreComillas(std::string_view nombre,
                                 std::initializer_list<std::string_view> argumentos);

// Asks "Envia?" when MostrarComandos is 1. True: the command may go (EnviaComando).
bool Confirmar(Biblioteca& k, std::string_view llamada);

// Puts the command in ComandoActual and sends it.
std::int32_t Mandar(Biblioteca& k, const Comando& comando);

// Sends ComandoActual as the last exchange left it: hosts have always got the previous command
// again where an operation builds none.
std::int32_t MandarAnterior(Biblioteca& k);

// The whole of a plain operation. An empty `registro` writes no log line.
std::int32_t Operar(Biblioteca& k, std::string_view llamada, std::string_view registro,
                    const Comando& comando);

// True for the families that take the T lengths ("TF", "TQ"); all others take the F ones.
bool UsaLargosT(const Estado& estado);
std::int32_t LargoSegunFamilia(const Estado& estado, std::int32_t largo_t, std::int32_t largo_f);

// The field routines as operations use them: what cannot be converted is shown to the operator and
// goes out as the empty text.
std::string CampoNumero(Biblioteca& k, double valor, const Digitos& digitos);
std::string CampoTexto(Biblioteca& k, std::string_view texto, std::int32_t longitud);

// LimpiarCaracteres when QuitarCaracNoValidos is 1.
std::string Limpiar(const Estado& estado, std::string texto);

}  // namespace kestra
