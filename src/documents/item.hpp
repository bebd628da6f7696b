#pragma once

#include <cstdint>

#include "state/library.hpp"

namespace kestra {

// The arguments of the two item operations, as the host passes them.
struct ItemArguments {
  const char* description;  // 50 bytes
  double quantity;
  double price;
  double vat;
  double internal_taxes;
  const char* extra1;  // 22 bytes, as the others
  const char* extra2;
  const char* extra3;
};

std::int32_t ImprimirItem(Library& library, const ItemArguments& arguments);
std::int32_t AnularItem(Library& library, const ItemArguments& arguments);

}  // namespace kestra
