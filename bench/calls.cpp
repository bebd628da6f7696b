#include "calls.hpp"

#include <kestra/kestra.h>

#include <array>
#include <string>
#include <string_view>

namespace kestra::bench {
namespace {

// The library reads texts for their full length.
std::string Padded(std::string_view words, std::size_t length) {
  std::string text(words);
  text.resize(length, ' ');
  return text;
}

}  // namespace

bool OpenTicket() {
  static const std::string blank = Padded("", 40);
  const char* const b = blank.c_str();
  return EP_AbrirComprobanteFiscal("FC", "C", b, b, b, b, "F", b, b, b, b, b, 1) == 0;
}

bool PrintItem() {
  static const std::string description = Padded("Yerba mate 1 kg", 50);
  static const std::string blank = Padded("", 22);
  const char* const b = blank.c_str();
  return EP_ImprimirItem(description.c_str(), 2.0, 890.5, 21.0, 0.0, b, b, b) == 0;
}

bool PrintPayment() {
  static const std::string description = Padded("Efectivo", 80);
  return EP_ImprimirPago(description.c_str(), 20000.0) == 0;
}

bool CloseTicket() {
  std::array<char, 8> number{};
  return EP_CerrarComprobanteFiscal("FC", "C", number.data()) == 0;
}

bool CutPaper() {
  return EP_CortaPapel() == 0;
}

}  // namespace kestra::bench
