#include "fiscal/cuit.hpp"

#include <array>
#include <cstddef>

#include "text/text.hpp"

namespace impresora {

bool IsCuit(std::string_view digits) {
  constexpr std::array<int, 11> kWeights{5, 4, 3, 2, 7, 6, 5, 4, 3, 2, 1};
  if (digits.size() != kWeights.size()) return false;
  int sum = 0;
  for (std::size_t i = 0; i < kWeights.size(); ++i) {
    if (digits[i] < '0' || digits[i] > '9') return false;
    sum += kWeights.at(i) * (digits[i] - '0');
  }
  return sum % 11 == 0 && digits.front() != '0';
}

bool HasGoodCuit(const Customer& customer) {
  const std::string_view kind = Trim(customer.id_kind);
  return (kind != "CUIT" && kind != "CUIL") || IsCuit(Trim(customer.id_number));
}

}  // namespace impresora
