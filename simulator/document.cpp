#include "document.hpp"

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

// Spreads an amount over the rates in proportion to what was sold at each; the last one takes what
// rounding leaves over, so that the parts always add up.
void Spread(std::vector<RateBase>& bases, std::int64_t amount) {
  const std::int64_t whole = Sum(bases);
  std::int64_t rest = amount;
  for (std::size_t i = 0; i + 1 < bases.size() && whole > 0; ++i) {
    const std::int64_t part = std::clamp<std::int64_t>(bases[i].amount, 0, whole);
    const std::int64_t share = Share(amount, part, whole);
    bases[i].amount += share;
    rest -= share;
  }
  bases.back().amount += rest;
}

}  // namespace

const DocumentKind* FindKind(char code, Family family) {
  for (const DocumentKind& kind : kInvoiceKinds) {
    if (kind.code == code && (kind.families & static_cast<unsigned>(family)) != 0) return &kind;
  }
  return nullptr;
}

Document::Document(const DocumentKind& kind, char letter, std::uint32_t number, Customer customer)
    : kind_(&kind), letter_(letter), number_(number), customer_(std::move(customer)) {}

Entry Document::Sell(const Item& item) {
  const Entry entry = Add(item, 1);
  if (entry == Entry::kDone) sold_.push_back({item.description, item.price, item.quantity});
  return entry;
}

Entry Document::Return(const Item& item) {
  return Add(item, -1);
}

Entry Document::Void(const Item& item) {
  const auto matches = [&item](const Sold& sold) {
    return sold.price == item.price && sold.quantity >= item.quantity &&
           sold.description == item.description;
  };
  const auto found = std::find_if(sold_.begin(), sold_.end(), matches);
  if (found == sold_.end()) return Entry::kRejected;
  const Entry entry = Add(item, -1);
  if (entry == Entry::kDone) found->quantity -= item.quantity;
  return entry;
}

Entry Document::Add(const Item& item, int sign) {
  if (!NetPrices() && item.internal > item.amount) return Entry::kRejected;
  std::vector<RateBase> bases = bases_;
  const std::int64_t taxed = NetPrices() ? item.amount : item.amount - item.internal;
  AddTo(bases, item.rate, sign * taxed);
  const std::int64_t internal = internal_ + sign * item.internal;
  const Entry entry = Check(bases, internal, perceptions_);
  if (entry != Entry::kDone) return entry;
  bases_ = std::move(bases);
  internal_ = internal;
  units_ += sign * item.quantity;
  ++lines_;
  ++lines_on_sheet;
  return Entry::kDone;
}

Entry Document::Adjust(std::int64_t amount) {
  if (bases_.empty()) return Entry::kRejected;
  std::vector<RateBase> bases = bases_;
  Spread(bases, amount);
  const Entry entry = Check(bases, internal_, perceptions_);
  if (entry == Entry::kDone) bases_ = std::move(bases);
  return entry;
}

Entry Document::AddPerception(std::int64_t amount) {
  const Entry entry = Check(bases_, internal_, perceptions_ + amount);
  if (entry == Entry::kDone) perceptions_ += amount;
  return entry;
}

void Document::Pay(Payment payment) {
  payments_.push_back(std::move(payment));
  paying = true;
}

Entry Document::Check(const std::vector<RateBase>& bases, std::int64_t internal,
                      std::int64_t perceptions) const {
  if (Sum(bases) < 0 || internal < 0) return Entry::kRejected;
  const Totals totals = TotalOf(bases, internal, perceptions);
  return totals.total > kLargestTotal ? Entry::kTooLarge : Entry::kDone;
}

Totals Document::Total() const {
  return TotalOf(bases_, internal_, perceptions_);
}

Totals Document::TotalOf(const std::vector<RateBase>& bases, std::int64_t internal,
                         std::int64_t perceptions) const {
  Totals totals;
  for (const RateBase& base : bases) {
    const std::int64_t net = NetPrices() ? base.amount : NetOfGross(base.amount, base.rate);
    const std::int64_t iva = NetPrices() ? IvaOnNet(net, base.rate) : base.amount - net;
    totals.rates.push_back({base.rate, net, iva});
    totals.net += net;
    totals.iva += iva;
  }
  totals.internal = internal;
  totals.perceptions = perceptions;
  totals.subtotal = Sum(bases) + (NetPrices() ? 0 : internal);
  totals.total = totals.net + totals.iva + internal + perceptions;
  return totals;
}

std::int64_t Document::Paid() const {
  std::int64_t paid = 0;
  for (const Payment& payment : payments_) paid += payment.amount;
  return paid;
}

}  // namespace impresora
