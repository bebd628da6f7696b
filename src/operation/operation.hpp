#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

#include "fields/number_field.hpp"
#include "protocol/command.hpp"
#include "state/causes.hpp"
#include "state/library.hpp"

namespace kestra {

// What every operation is made of, and the one place that runs it.

constexpr std::int32_t kSuccess = 0;
constexpr std::int32_t kFailure = 1;

// The arguments chose no command: nothing is sent, and the operation fails.
struct NoCommand {};

// Kept as is: where an operation builds no command of its own, hosts get the previous one again, as the
// last exchange left it.
struct PreviousCommand {};

using Outgoing = std::variant<NoCommand, PreviousCommand, Command>;

struct Operation {
  std::string call = {};              // as the operator is asked about it; empty: nobody is asked
  std::string log = {};               // its line in the log; empty: none
  std::function<bool()> before = {};  // what must come before the command; false ends it there
  Cause otherwise = Cause::kNone;     // why it ended there
  Outgoing command = {};
  std::function<void()> after = {};  // what the answer is for, whatever the verdict on the command
};

// Asks, logs, sends. kSuccess: the printer accepted the command.
std::int32_t Run(Library& library, const Operation& operation);

// "EP_X(a,b)", as the operator is asked about a call.
std::string Call(std::string_view name, std::initializer_list<std::string_view> arguments);

// "EP_X('a','b')"
std::string QuotedCall(std::string_view name, std::initializer_list<std::string_view> arguments);

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
