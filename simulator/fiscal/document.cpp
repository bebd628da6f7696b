#include "fiscal/document.hpp"

#include <algorithm>
#include <utility>

namespace impresora {
namespace {

std::int64_t Sum(const std::vector<RateBase>& bases) {
  std::int64_t sum = 0;
  for (const RateBase& base : bases) sum += base.amount;
  return sum;
}

void AddTo(std::vector<RateBase>& bases, std::int64_t rate, std::int64_t amount) {
  const auto same = [rate](const RateBase& base) { return base.rate == rate; };
  const auto found = std::find_if(bases.begin(), bases.end(), same);
  if (found != bases.end()) {
    found->amount += amount;
  } else {
    bases.push_back({rate, amount});
  }
}

bool Larger(const RateBase& a, const RateBase& b) {
  return a.amount < b.amount;
}

// Spreads an amount over the rates in proportion to what was sold at each; the largest takes what
// rounding leaves over, so that the parts always add up.
void Spread(std::vector<RateBase>& bases, std::int64_t amount) {
  const std::int64_t whole = Sum(bases);
  const auto largest = std::max_element(bases.begin(), bases.end(), Larger);
  std::int64_t rest = amount;
  for (auto base = bases.begin(); base != bases.end() && whole > 0; ++base) {
    if (base == largest) continue;
    const std::int64_t share = Share(amount, base->amount, whole);
    base->amount += share;
    rest -= share;
  }
  largest->amount += rest;
}

bool AnyNegative(const std::vector<RateBase>& bases) {
  return std::any_of(bases.begin(), bases.end(), [](const RateBase& b) { return b.amount < 0; });
}

std::vector<SoldItem>::iterator FindLike(std::vector<SoldItem>& sold, const Item& item) {
  return std::find_if(sold.begin(), sold.end(), [&item](const SoldItem& line) {
    return line.price == item.price && line.rate == item.rate &&
           line.internal_each == item.internal_each && line.description == item.description;
  });
}

}  // namespace

const DocumentKind* FindKind(char code, Family family) {
  for (const DocumentKind& kind : kInvoiceKinds) {
    if (kind.code == code && (kind.families & static_cast<unsigned>(family)) != 0) return &kind;
  }
  return nullptr;
}

Document::Document(const DocumentKind& kind, DocumentContent content)
    : DocumentContent(std::move(content)), kind_(&kind) {}

Entry Document::Sell(const Item& item) {
  const Entry entry = Add(item, 1);
  if (entry != Entry::kDone) return entry;
  auto line = FindLike(sold, item);
  if (line == sold.end()) {
    line =
        sold.insert(line, {item.description, item.price, item.rate, item.internal_each, 0, 0, 0});
  }
  line->quantity += item.quantity;
  line->taxed += Taxed(item);
  line->internal += item.internal;
  return entry;
}

Entry Document::TakeBack(Item& item) {
  const auto line = FindLike(sold, item);
  if (line == sold.end() || item.quantity > line->quantity) return Entry::kRejected;
  const bool last = item.quantity == line->quantity;
  const std::int64_t taxed = last ? line->taxed : std::min(Taxed(item), line->taxed);
  Item taken = item;
  taken.internal = last ? line->internal : std::min(item.internal, line->internal);
  taken.amount = NetPrices() ? taxed : taxed + taken.internal;
  const Entry entry = Add(taken, -1);
  if (entry != Entry::kDone) return entry;
  line->quantity -= taken.quantity;
  line->taxed -= taxed;
  line->internal -= taken.internal;
  item = std::move(taken);
  return entry;
}

std::int64_t Document::Taxed(const Item& item) const {
  return NetPrices() ? item.amount : item.amount - item.internal;
}

Entry Document::Add(const Item& item, int sign) {
  if (!NetPrices() && item.internal > item.amount) return Entry::kRejected;
  std::vector<RateBase> with = bases;
  AddTo(with, item.rate, sign * Taxed(item));
  const std::int64_t taxes = internal + sign * item.internal;
  const Entry entry = Check(with, taxes, perceptions);
  if (entry != Entry::kDone) return entry;
  bases = std::move(with);
  internal = taxes;
  units += sign * item.quantity;
  ++lines;
  ++lines_on_sheet;
  return Entry::kDone;
}

Entry Document::Adjust(std::int64_t amount) {
  if (bases.empty()) return Entry::kRejected;
  std::vector<RateBase> with = bases;
  Spread(with, amount);
  const Entry entry = Check(with, internal, perceptions);
  if (entry == Entry::kDone) bases = std::move(with);
  return entry;
}

Entry Document::AddPerception(std::int64_t amount) {
  const Entry entry = Check(bases, internal, perceptions + amount);
  if (entry == Entry::kDone) perceptions += amount;
  return entry;
}

Entry Document::Pay(Payment payment) {
  if (Paid() + payment.amount > kLargestTotal) return Entry::kTooLarge;
  payments.push_back(std::move(payment));
  paying = true;
  return Entry::kDone;
}

Entry Document::Check(const std::vector<RateBase>& with_bases, std::int64_t with_internal,
                      std::int64_t with_perceptions) const {
  if (AnyNegative(with_bases) || with_internal < 0) return Entry::kRejected;
  const Totals totals = TotalOf(with_bases, with_internal, with_perceptions);
  return totals.total > largest_total ? Entry::kTooLarge : Entry::kDone;
}

Totals Document::Total() const {
  return TotalOf(bases, internal, perceptions);
}

Totals Document::TotalOf(const std::vector<RateBase>& with_bases, std::int64_t with_internal,
                         std::int64_t with_perceptions) const {
  Totals totals;
  for (const RateBase& base : with_bases) {
    const std::int64_t net = NetPrices() ? base.amount : NetOfGross(base.amount, base.rate);
    const std::int64_t iva = NetPrices() ? IvaOnNet(net, base.rate) : base.amount - net;
    totals.rates.push_back({base.rate, net, iva});
    totals.net += net;
    totals.iva += iva;
  }
  totals.internal = with_internal;
  totals.perceptions = with_perceptions;
  totals.subtotal = Sum(with_bases) + (NetPrices() ? 0 : with_internal);
  totals.total = totals.net + totals.iva + with_internal + with_perceptions;
  return totals;
}

std::int64_t Document::Paid() const {
  std::int64_t paid = 0;
  for (const Payment& payment : payments) paid += payment.amount;
  return paid;
}

}  // namespace impresora
