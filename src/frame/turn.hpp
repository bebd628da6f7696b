#pragma once

#include <atomic>
#include <cerrno>
#include <cstdint>

namespace kestra {

// The one call that is under way. A call made meanwhile, from a dialog's callback or from another
// thread, would send its command into the middle of the exchange: it is turned away.
//
// A host may also leave a callback with a jump or an exception of its own, past the call that the
// callback came from: that call never ends. Stacks grow downward, so that a later call of the same
// thread gives it away by lying no deeper than where the host was let in; it takes the turn over.
class Turno {
 public:
  Turno() : mio_(LoToma()) {}
  Turno(const Turno&) = delete;
  Turno& operator=(const Turno&) = delete;
  ~Turno() {
    if (mio_) dueno_.store(kNadie, std::memory_order_release);
  }

  explicit operator bool() const { return mio_; }

  // True when it was taken over: what the other call held is still held.
  [[nodiscard]] bool Heredado() const { return heredado_; }

  // Lies in the stack of the call for as long as the host's code runs in the middle of it.
  class Visita {
   public:
    Visita() : antes_(fondo_) { fondo_ = Direccion(this); }
    Visita(const Visita&) = delete;
    Visita& operator=(const Visita&) = delete;
    ~Visita() { fondo_ = antes_; }

   private:
    std::uintptr_t antes_;
  };

 private:
  static constexpr std::uintptr_t kNadie = 0;

  static std::uintptr_t Direccion(const void* lugar) {
    return reinterpret_cast<std::uintptr_t>(lugar);
  }

  // Each thread has an errno of its own; not every compiler for Windows has names for threads.
  static std::uintptr_t Hilo() { return Direccion(&errno); }

  bool LoToma() {
    auto dueno = kNadie;
    const bool libre = dueno_.compare_exchange_strong(dueno, Hilo(), std::memory_order_acquire);
    heredado_ = !libre && dueno == Hilo() && Direccion(this) >= fondo_;
    if (libre || heredado_) fondo_ = Direccion(this);
    return libre || heredado_;
  }

  static inline std::atomic<std::uintptr_t> dueno_ = kNadie;
  // The deepest place known to be in the call's stack. Its own thread alone looks at it.
  static inline std::uintptr_t fondo_ = 0;

  bool heredado_ = false;
  bool mio_;
};

}  // namespace kestra
