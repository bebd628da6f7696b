#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "fiscal/amounts.hpp"
#include "fiscal/document.hpp"

namespace impresora {

// Digit counts that the commands' numeric fields are read with.
struct FieldDigits {
  Digits quantity{5, 3};
  Digits price{7, 2};
  Digits rate{2, 2};
  Digits internal_tax{7, 2};
  Digits amount{7, 2};  // discounts, surcharges and payments
  Digits perception{7, 2};
};

// Longest texts that the commands' fields take, in bytes.
struct TextLengths {
  int description = 80;       // of items, with their extra lines
  int fiscal_text = 80;       // of discounts and surcharges
  int header = 120;           // above and below documents
  int non_fiscal_text = 120;  // of non-fiscal documents
  int customer = 80;          // name, address and further lines
};

struct Settings {
  Family family = Family::kTicketInvoice;
  FieldDigits digits;
  TextLengths roll_texts;
  TextLengths form_texts;
  std::string model = "TM-U220AF";
  std::string owner = "COMERCIO DE PRUEBA S.A.";
  std::string owner_cuit = "30-00000000-7";
  char owner_iva = 'I';
  int point_of_sale = 1;
  int closings_left = 1825;   // daily closings that still fit in the fiscal memory
  int lines_per_form = 24;    // item lines that fit on one form
  bool strict_cuit = false;   // refuse a customer's CUIT whose check digit is wrong
  bool strict = false;        // refuse what a shop's printer refuses (commands/strict.cpp)
  bool knows_repeats = true;  // a frame that comes again is not carried out again

  // How long the printer works on each command before it answers, by command byte.
  std::array<std::uint32_t, 256> work_milliseconds{};

  const TextLengths& Texts() const { return family == Family::kForm ? form_texts : roll_texts; }
  std::size_t PaperColumns() const { return family == Family::kForm ? 80 : 40; }
};

}  // namespace impresora
