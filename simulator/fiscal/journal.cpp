#include "fiscal/journal.hpp"

#include <algorithm>

namespace impresora {

void Movement::Add(const Totals& totals) {
  ++documents;
  total += totals.total;
  internal += totals.internal;
  perceptions += totals.perceptions;
  for (const RateTotal& added : totals.rates) {
    const auto lower = [](const RateTotal& row, std::int64_t rate) { return row.rate < rate; };
    auto row = std::lower_bound(rates.begin(), rates.end(), added.rate, lower);
    if (row == rates.end() || row->rate != added.rate) {
      row = rates.insert(row, RateTotal{added.rate, 0, 0});
    }
    row->net += added.net;
    row->iva += added.iva;
  }
}

std::int64_t Movement::Iva() const {
  std::int64_t sum = 0;
  for (const RateTotal& row : rates) sum += row.iva;
  return sum;
}

void Day::Close(const DocumentKind& kind, const Totals& totals) {
  if (kind.sales_sign > 0) {
    sales.Add(totals);
  } else if (kind.sales_sign < 0) {
    credits.Add(totals);
  } else {
    ++unpriced;
  }
}

std::uint32_t Numbering::Last(Series series, char letter) const {
  const auto found = last_.find({series, letter});
  return found == last_.end() ? 0 : found->second;
}

Receipt ReceiptOf(const Document& document) {
  Receipt receipt;
  receipt.kind = document.Kind().title;
  receipt.code = document.Kind().code;
  receipt.letter = document.letter;
  receipt.number = document.number;
  receipt.customer_id = document.customer.id_number;
  return receipt;
}

}  // namespace impresora
