#pragma once

#include <atomic>
#include <cstdint>
#include <exception>
#include <string_view>

#include "frame/command_log.hpp"
#include "frame/failure.hpp"
#include "frame/instance.hpp"
#include "frame/library.hpp"
#include "platform/floating_point.hpp"

namespace kestra {

// The one call that is under way. A call made meanwhile, from a dialog's callback or from another
// thread, would send its command into the middle of the exchange: it is turned away.
class Turno {
 public:
  Turno() : mio_(!ocupado_.test_and_set(std::memory_order_acquire)) {}
  Turno(const Turno&) = delete;
  Turno& operator=(const Turno&) = delete;
  ~Turno() {
    if (mio_) ocupado_.clear(std::memory_order_release);
  }

  explicit operator bool() const { return mio_; }

 private:
  static inline std::atomic_flag ocupado_;
  bool mio_;
};

// Runs what may be called at any time; a failure of it becomes `fracaso`.
template <typename Cuerpo>
std::int32_t SinFallar(std::int32_t fracaso, Cuerpo cuerpo) noexcept {
  try {
    return cuerpo();
  } catch (...) {
    return fracaso;  // the host must survive anything
  }
}

// Runs the body of an operation. Whatever goes wrong in it ends here: in the log and as `fracaso`.
template <typename Operacion>
std::int32_t Exportar(std::string_view nombre, std::int32_t fracaso, Operacion operacion) noexcept {
  const Turno turno;
  if (!turno) return fracaso;
  const FloatingPoint ours;
  return SinFallar(fracaso, [&] {
    auto& k = Instancia();
    try {
      return operacion(k);
    } catch (const std::exception& error) {
      RegistrarFalla(k, AFalla(error), nombre);
      return fracaso;
    }
  });
}

}  // namespace kestra
