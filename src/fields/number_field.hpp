#pragma once

#include <cstdint>
#include <string>

namespace kestra {

// The digits a numeric field of the printer has.
struct Digitos {
  std::int16_t enteros = 0;
  std::int16_t decimales = 0;
  std::int16_t incluir_punto = 0;  // 1: the decimal point is part of the field
};

// A number as a field of fixed width, filled with zeros. A negative one is a character wider.
// Throws Falla when it does not fit.
std::string FormatearNumero(double value, const Digitos& digitos);

// A digit count of 0..32767 decimals after a point, whatever the locale: |2.675| with 2 is "2.68".
// Halves go away from zero, judged on 15 significant digits. Throws Falla for what is no number.
std::string DecimalFijo(double value, std::int32_t decimales);

// Hundredths as a whole number, halves to the even one, judged on 15 significant digits.
double RedondearCentesimos(double value);

// "005" for 0.05: two decimals without any separator.
std::string DigitosDeCentesimos(double value);

}  // namespace kestra
