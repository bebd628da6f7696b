#pragma once

#include <windows.h>

namespace kestra {

// The library's exports as methods of an object, for languages that can use nothing else: Kestra.Caja.
inline constexpr CLSID kTillClass = {
    0x889b85c9, 0x1fb0, 0x407e, {0xab, 0xe4, 0x3c, 0x70, 0x6a, 0xa9, 0x56, 0x4c}};

// One of them, with one reference, as the interface asked for.
HRESULT CreateTill(REFIID interface_id, void** object);

}  // namespace kestra
