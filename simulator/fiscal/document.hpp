#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fiscal/amounts.hpp"

namespace impresora {

// What the printer was built to issue: tickets, ticket-invoices on a roll, or forms.
enum class Family : unsigned { kTicket = 1, kTicketInvoice = 2, kForm = 4 };

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

  bool operator==(const Customer&) const = default;
};

struct Item {
  std::string description;
  std::int64_t quantity = 0;  // positive
  std::int64_t price = 0;
  std::int64_t rate = 0;
  std::int64_t amount = 0;    // positive
  std::int64_t internal = 0;  // internal taxes of the whole line, positive
  std::int64_t internal_each = 0;
};

struct Payment {
  std::string description;
  std::int64_t amount;

  bool operator==(const Payment&) const = default;
};

// Lines sold that are equal but for their quantity, and what voids and returns have left of them all.
struct SoldItem {
  std::string description;
  std::int64_t price, rate, internal_each;
  std::int64_t quantity, taxed, internal;  // `taxed`: what its rate's base has of it

  bool operator==(const SoldItem&) const = default;
};

struct RateBase {
  std::int64_t rate;
  std::int64_t amount;  // in the terms of the prices: net on letter A, IVA included elsewhere

  bool operator==(const RateBase&) const = default;
};

struct RateTotal {
  std::int64_t rate, net, iva;

  bool operator==(const RateTotal&) const = default;
};

struct Totals {
  std::vector<RateTotal> rates;
  std::int64_t subtotal = 0;  // what the items and corrections add up to as printed
  std::int64_t net = 0;
  std::int64_t iva = 0;
  std::int64_t internal = 0;
  std::int64_t perceptions = 0;
  std::int64_t total = 0;
};

enum class Entry { kDone, kRejected, kTooLarge };

// All that an open document is, as it outlives a power cut.
struct DocumentContent {
  char letter = 0;
  std::uint32_t number = 0;
  std::int64_t largest_total = kLargestTotal;
  Customer customer;
  std::vector<RateBase> bases;
  std::vector<SoldItem> sold;
  std::vector<Payment> payments;
  std::int64_t internal = 0;
  std::int64_t perceptions = 0;
  std::int64_t units = 0;
  int lines = 0;

  // Progress of the document through its stages.
  bool paying = false;
  bool between_sheets = false;
  int lines_on_sheet = 0;

  int copies = 1;  // how many papers the host wants

  bool operator==(const DocumentContent&) const = default;
};

// The open fiscal document: what was sold, corrected and paid, and what it all comes to.
class Document : public DocumentContent {
 public:
  Document(const DocumentKind& kind, DocumentContent content);

  // Each leaves the document as it was unless it returns kDone.
  Entry Sell(const Item& item);
  // Of what was sold like that, over all its lines; no more money than they have left, and all of it
  // with the last of the quantity. The item then holds what it took.
  Entry TakeBack(Item& item);
  Entry Adjust(std::int64_t amount);
  Entry AddPerception(std::int64_t amount);
  Entry Pay(Payment payment);

  Totals Total() const;
  std::int64_t Paid() const;
  bool NetPrices() const { return letter == 'A'; }
  bool HasItems() const { return lines > 0; }

  const DocumentKind& Kind() const { return *kind_; }
  bool operator==(const Document&) const = default;

 private:
  Entry Add(const Item& item, int sign);
  std::int64_t Taxed(const Item& item) const;
  Entry Check(const std::vector<RateBase>& with_bases, std::int64_t with_internal,
              std::int64_t with_perceptions) const;
  Totals TotalOf(const std::vector<RateBase>& with_bases, std::int64_t with_internal,
                 std::int64_t with_perceptions) const;

  const DocumentKind* kind_;
};

}  // namespace impresora
