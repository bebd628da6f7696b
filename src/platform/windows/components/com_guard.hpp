#pragma once

#include <windows.h>

#include <new>

namespace kestra {

// Runs the body of a component's method; callers know results, not exceptions.
template <typename Body>
HRESULT ComGuard(Body body) noexcept {
  try {
    return body();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

}  // namespace kestra
