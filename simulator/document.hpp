#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "settings.hpp"

namespace impresora {

// Documents of one series share their numbering, letter by letter.
enum class Series { kTicket, kInvoice, kDebitNote, kCreditNote, kDeliveryNote, kOther };

struct DocumentKind {
  char code;  // kind letter on the wire; 0 for the plain ticket
  std::string_view title;
  Series series;
  int sales_sign;  // what the document does to the day's sales
  unsigned families;
  std::string_view letters;
};

inline constexpr unsigned kOnTickets = static_cast<unsigned>(Family::kTicket);
inline constexpr unsigned kOnRolls = static_cast<unsigned>(Family::kTicketInvoice);
inline constexpr unsigned kOnForms = static_cast<unsigned>(Family::kForm);

inline constexpr DocumentKind kTicketKind{0,  "TIQUE", Series::kTicket, 1, kOnTickets | kOnRolls,
                                          "B"};

inline constexpr std::array<DocumentKind, 7> kInvoiceKinds{{
    {'F', "FACTURA", Series::kInvoice, 1, kOnForms, "ABC"},
    {'T', "TIQUE FACTURA", Series::kInvoice, 1, kOnRolls, "ABC"},
    {'D', "NOTA DE DÉBITO", Series::kDebitNote, 1, kOnForms | kOnRolls, "ABC"},
    {'M', "TIQUE NOTA DE CRÉDITO", Series::kCreditNote, -1, kOnRolls, "ABC"},
    {'N', "NOTA DE CRÉDITO", Series::kCreditNote, -1, kOnForms, "ABC"},
    {'E', "REMITO", Series::kDeliveryNote, 0, kOnForms, "ABCRX"},
    {'C', "COMPROBANTE", Series::kOther, 0, kOnForms, "ABCRX"},
}};

// The row for a kind letter in that family, or null.
const DocumentKind* FindKind(char code, Family family);

struct Customer {
  std::string name, name_more, id_kind, id_number;
  char iva = 0;
  std::vector<std::string> address;
};

struct Item {
  std::string description;
  std::int64_t quantity = 0;  // positive
  std::int64_t price = 0;
  std::int64_t rate = 0;
  std::int64_t amount = 0;    // positive
  std::int64_t internal = 0;  // internal taxes of the whole line, positive
};

struct Payment {
  std::string description;
  std::int64_t amount;
};

struct RateBase {
  std::int64_t rate;
  std::int64_t amount;  // in the terms of the prices: net on letter A, IVA included elsewhere
};

struct RateTotal {
  std::int64_t rate, net, iva;
};

struct Totals {
  std::vector<RateTotal> rates;
  std::int64_t subtotal = 0;  // what the lines add up to as printed
  std::int64_t net = 0;
  std::int64_t iva = 0;
  std::int64_t internal = 0;
  std::int64_t perceptions = 0;
  std::int64_t total = 0;
};

enum class Entry { kDone, kRejected, kTooLarge };

// The open fiscal document: what was sold, corrected and paid, and what it all comes to.
class Document {
 public:
  Document(const DocumentKind& kind, char letter, std::uint32_t number, Customer customer);

  // Each leaves the document as it was unless it returns kDone.
  Entry Sell(const Item& item);
  Entry Void(const Item& item);    // takes back what was sold at that price
  Entry Return(const Item& item);  // a sale of the opposite sign
  Entry Adjust(std::int64_t amount);
  Entry AddPerception(std::int64_t amount);
  void Pay(Payment payment);

  Totals Total() const;
  std::int64_t Paid() const;
  bool NetPrices() const { return letter_ == 'A'; }
  bool HasItems() const { return lines_ > 0; }

  const DocumentKind& kind() const { return *kind_; }
  char letter() const { return letter_; }
  std::uint32_t number() const { return number_; }
  const Customer& customer() const { return customer_; }
  const std::vector<Payment>& payments() const { return payments_; }
  int lines() const { return lines_; }
  std::int64_t units() const { return units_; }

  // Progress of the document through its stages.
  bool paying = false;
  bool between_sheets = false;
  int lines_on_sheet = 0;

 private:
  struct Sold {
    std::string description;
    std::int64_t price;
    std::int64_t quantity;  // what voids have left of it
  };

  Entry Add(const Item& item, int sign);
  Entry Check(const std::vector<RateBase>& bases, std::int64_t internal,
              std::int64_t perceptions) const;
  Totals TotalOf(const std::vector<RateBase>& bases, std::int64_t internal,
                 std::int64_t perceptions) const;

  const DocumentKind* kind_;
  char letter_;
  std::uint32_t number_;
  Customer customer_;
  std::vector<RateBase> bases_;
  std::vector<Sold> sold_;
  std::vector<Payment> payments_;
  std::int64_t internal_ = 0;
  std::int64_t perceptions_ = 0;
  std::int64_t units_ = 0;
  int lines_ = 0;
};

}  // namespace impresora
