// What a printer takes, by its Fiscal.ini: family, digits, lengths. A document is checked against that.
#pragma once

#include <string>
#include <string_view>

#include "base/json.hpp"

namespace puerta {

struct Digits {
  int integers = 9;
  int decimals = 4;
};

// As long as nothing is known of a printer, what any printer may take.
struct Facts {
  std::string family;  // "TQ", "TF", "FC"; empty: not known
  char issuer = 'I';   // the shop's condition before the IVA
  Digits quantity, price, rate{2, 2}, internal, amount, perception;
  int description = 50;
  int correction = 80;  // of discounts and surcharges
  int header = 120;
  int plain_text = 120;  // of a page without fiscal value
  int customer = 40;
  bool respells = true;  // Transliterar: what the printer does not have goes out as what comes near
};

// Everything for a worker's "listo" and for Check, out of the text of Fiscal.ini.
Json FactsOf(std::string_view ini);

// Of what FactsOf has given; null gives what is taken as long as nothing is known.
Facts ReadFacts(const Json& facts);

}  // namespace puerta
