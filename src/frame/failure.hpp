#pragma once

#include <cstdint>
#include <exception>
#include <new>
#include <string>
#include <utility>

namespace kestra {

// A run-time failure: the one exception that travels inside the library.
class Falla : public std::exception {
 public:
  Falla(std::int32_t numero, std::string descripcion)
      : numero_(numero), descripcion_(std::move(descripcion)) {}

  [[nodiscard]] std::int32_t Numero() const noexcept { return numero_; }
  // Windows-1252, as it goes to the log.
  [[nodiscard]] const std::string& Descripcion() const noexcept { return descripcion_; }
  [[nodiscard]] const char* what() const noexcept override { return descripcion_.c_str(); }

 private:
  std::int32_t numero_;
  std::string descripcion_;
};

// Numbers and words of the classic run time, which hosts' logs have always shown.
inline Falla Desbordamiento() {
  return {6, "Overflow"};
}
inline Falla SinMemoria() {
  return {7, "Out of memory"};
}
inline Falla TipoNoCoincide() {
  return {13, "Type mismatch"};
}
inline Falla LlamadaNoValida() {
  return {5, "Invalid procedure call or argument"};
}
inline Falla SinObjeto() {
  return {91, "Object variable or With block variable not set"};
}

// Any exception in the library's own terms.
inline Falla AFalla(const std::exception& error) {
  if (const auto* falla = dynamic_cast<const Falla*>(&error)) return *falla;
  if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) return SinMemoria();
  return {51, "Internal error"};
}

// "Error 13 (Type mismatch)"
inline std::string TextoDeFalla(const Falla& falla) {
  return "Error " + std::to_string(falla.Numero()) + " (" + falla.Descripcion() + ")";
}

}  // namespace kestra
