#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace kestra {

// How the library takes and gives texts at the moment.
enum class Encoding { kAnsi, kUtf8 };

// What scripts hand over, as the library takes it. Each gives an error of the component system for what
// cannot be changed into it. Texts that are numbers are read as programs write them, with a point: a comma
// would be taken for thousands, and 1,50 for 150, so that it is none.
HRESULT TextOf(const VARIANT& value, Encoding encoding, std::string& text);
HRESULT AmountOf(const VARIANT& value, double& amount);
HRESULT IntegerOf(const VARIANT& value, std::int32_t& integer);

// A variable of the script's, which may be changed.
bool IsVariable(const VARIANT& value);

// Puts a text there, in place of what it was.
HRESULT Assign(const VARIANT& variable, Encoding encoding, std::string_view text);

}  // namespace kestra
