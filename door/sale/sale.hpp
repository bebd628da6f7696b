// A whole document, as a value.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/decimal.hpp"
#include "sale/documents.hpp"
#include "sale/part.hpp"

namespace puerta {

struct Customer {
  std::string name, name_more, id_kind, id_number;
  char condition = 'F';              // 0: not known
  std::vector<std::string> address;  // up to three lines
  std::vector<std::string> lines;    // and two more
};

struct Line {
  std::string pointer;
  bool is_text = false;
  std::string description;  // or the text
  Decimal quantity{1, 0};   // negative: comes back
  Decimal price, rate, internal;
  std::vector<std::string> extras;
};

struct NamedAmount {
  std::string description;
  Decimal amount;
};

struct Perception {
  std::string description;
  Decimal amount, rate;
  bool on_iva = false;
};

struct Sale {
  const Kind* kind = nullptr;
  std::string letter;
  Customer customer;
  std::vector<Line> lines;
  std::vector<NamedAmount> discounts, surcharges, payments;
  std::vector<Perception> perceptions;
  std::optional<Decimal> total;
  std::int32_t copies = 1;
};

// What of it is wrong goes to the errors; what could be read is there all the same.
Sale ReadSale(const Json& body, const Facts& facts, Errors& errors);

Customer ReadCustomer(Part part, const Facts& facts);

// What it comes to, in hundredths, and by how much the printer's own sum may differ: it rounds the IVA of net prices.
struct Total {
  std::int64_t amount = 0;
  std::int64_t tolerance = 0;
};

// Lines, corrections, perceptions and payments held against each other.
Total CheckSums(const Sale& sale, Errors& errors);

}  // namespace puerta
