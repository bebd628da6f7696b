#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "fields/number_field.hpp"
#include "protocol/command.hpp"
#include "state/library.hpp"

namespace kestra {

// What every operation is made of: ask, log, build, send.

constexpr std::int32_t kSuccess = 0;
constexpr std::int32_t kFailure = 1;

// "EP_X(a,b)", as the operator is asked about a call.
std::string Call(std::string_view name, std::initializer_list<std::string_view> arguments);

// "EP_X('a','b')"
std::string QuotedCall(std::string_view name, std::initializer_list<std::string_view> arguments);

// Asks "Envia?" when MostrarComandos is 1. True: the command may go (EnviaComando).
bool Confirm(Library& library, std::string_view call);

// Puts the command in ComandoActual and sends it.
std::int32_t Send(Library& library, const Command& command);

// Sends ComandoActual as the last exchange left it: hosts have always got the previous command
// again where an operation builds none.
std::int32_t SendPrevious(Library& library);

// The whole of a plain operation. An empty `log` writes no log line.
std::int32_t Operate(Library& library, std::string_view call, std::string_view log,
                     const Command& command);

// True for the families that take the T lengths ("TF", "TQ"); all others take the F ones.
bool UsesTLengths(const State& state);
std::int32_t LengthForFamily(const State& state, std::int32_t t_length, std::int32_t f_length);

// The field routines as operations use them: what cannot be converted is shown to the operator and
// goes out as the empty text.
std::string NumberField(Library& library, double value, const Digits& shape);
std::string TextField(Library& library, std::string_view text, std::int32_t length);

// LimpiarCaracteres when QuitarCaracNoValidos is 1.
std::string Clean(const State& state, std::string text);

}  // namespace kestra
