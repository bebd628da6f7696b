// What a document comes to, as the printer will count it.
#include <cstdlib>
#include <map>
#include <tuple>

#include "sale/sale.hpp"

namespace puerta {
namespace {

constexpr std::int64_t kLargestTotal = 99'999'999'999;  // hundredths
constexpr std::int64_t kWholeRate = 10'000;             // a hundred per cent

// Lines that are equal but for their quantity: what comes back must have been sold.
using Article = std::tuple<std::string, std::int64_t, std::int64_t, std::int64_t>;

std::int64_t Hundredths(const Decimal& value) {
  return UnitsOf(value, 2).value_or(kLargestTotal + 1);
}

class Sums {
 public:
  Sums(const Sale& sale, Errors& errors) : sale_(sale), errors_(errors), net_(sale.letter == "A") {}

  Total Check() {
    for (const auto& line : sale_.lines)
      if (!line.is_text) Add(line);
    CheckLines();
    for (std::size_t i = 0; i < sale_.discounts.size(); ++i) Discount(i);
    for (const auto& surcharge : sale_.surcharges) Spread(Hundredths(surcharge.amount));
    Total total{Amount(), Tolerance()};
    CheckTotal(total);
    CheckPayments(total);
    return total;
  }

 private:
  void Wrong(std::string pointer, std::string message) {
    errors_.push_back({std::move(pointer), std::move(message)});
  }

  void Add(const Line& line) {
    ++items_;
    const auto amount = ProductUnits(line.quantity, line.price, 2);
    const auto internal = ProductUnits(line.quantity, line.internal, 2);
    if (!amount || !internal || std::abs(*amount) > kLargestTotal)
      return Wrong(line.pointer, "el importe pasa lo que la impresora admite");
    if (!net_ && std::abs(*internal) > std::abs(*amount))
      Wrong(line.pointer + "/impuestos_internos", "son más que el precio");
    Take(line);
    bases_[UnitsOf(line.rate, 2).value_or(0)] += net_ ? *amount : *amount - *internal;
    internal_ += *internal;
  }

  void Take(const Line& line) {
    constexpr int kPlaces = 4;
    const auto units = [](const Decimal& value) { return UnitsOf(value, kPlaces).value_or(0); };
    auto& left =
        sold_[{line.description, units(line.price), units(line.rate), units(line.internal)}];
    left += units(line.quantity);
    if (left < 0)
      Wrong(line.pointer + "/cantidad", "se devuelve más de lo que se vendió en este comprobante");
  }

  void CheckLines() {
    if (items_ == 0) Wrong("/renglones", "no hay ningún artículo");
  }

  std::int64_t Base() const {
    std::int64_t sum = 0;
    for (const auto& [rate, amount] : bases_) sum += amount;
    return sum;
  }

  void Discount(std::size_t index) {
    const auto amount = Hundredths(sale_.discounts[index].amount);
    if (amount > Base())
      return Wrong("/descuentos/" + std::to_string(index) + "/monto",
                   "es más que lo vendido: " + FixedText(Base(), 2));
    Spread(-amount);
  }

  // Over the rates, in proportion to what was sold at each; the largest takes what rounding leaves over.
  void Spread(std::int64_t amount) {
    const auto whole = Base();
    if (bases_.empty()) return;
    const auto largest =
        std::max_element(bases_.begin(), bases_.end(),
                         [](const auto& a, const auto& b) { return a.second < b.second; });
    std::int64_t rest = amount;
    for (auto base = bases_.begin(); base != bases_.end() && whole > 0; ++base) {
      if (base == largest) continue;
      const auto share = ShareOf(amount, base->second, whole);
      base->second += share;
      rest -= share;
    }
    largest->second += rest;
  }

  std::int64_t Amount() const {
    std::int64_t sum = Base() + internal_;
    for (const auto& [rate, amount] : bases_)
      if (net_) sum += DivideRounded(amount * rate, kWholeRate);
    for (const auto& perception : sale_.perceptions) sum += Hundredths(perception.amount);
    return sum;
  }

  std::int64_t Tolerance() const {
    return net_ ? items_ + static_cast<std::int64_t>(bases_.size()) : 0;
  }

  void CheckTotal(const Total& total) {
    if (total.amount > kLargestTotal)
      Wrong("/renglones", "el total pasa lo que la impresora admite");
    if (!sale_.total) return;
    if (std::abs(Hundredths(*sale_.total) - total.amount) > total.tolerance)
      Wrong("/total", "la suma da " + FixedText(total.amount, 2));
  }

  void CheckPayments(const Total& total) {
    if (sale_.payments.empty()) return;
    std::int64_t paid = 0;
    for (const auto& payment : sale_.payments) paid += Hundredths(payment.amount);
    if (paid < total.amount - total.tolerance)
      Wrong("/pagos",
            "suman " + FixedText(paid, 2) + " y el total es " + FixedText(total.amount, 2));
    if (paid > kLargestTotal) Wrong("/pagos", "pasan lo que la impresora admite");
  }

  const Sale& sale_;
  Errors& errors_;
  bool net_;  // prices are without the IVA
  std::map<std::int64_t, std::int64_t> bases_;
  std::map<Article, std::int64_t> sold_;
  std::int64_t internal_ = 0;
  std::int64_t items_ = 0;
};

// Sums say nothing as long as something that is added up is wrong by itself.
bool CanBeAdded(const Errors& errors) {
  constexpr std::array<std::string_view, 6> kAdded{"/renglones",    "/descuentos", "/recargos",
                                                   "/percepciones", "/pagos",      "/total"};
  return std::none_of(errors.begin(), errors.end(), [&](const FieldError& error) {
    return std::any_of(kAdded.begin(), kAdded.end(), [&](std::string_view start) {
      return error.pointer.starts_with(start) || error.pointer.empty();
    });
  });
}

}  // namespace

Total CheckSums(const Sale& sale, Errors& errors) {
  return CanBeAdded(errors) ? Sums(sale, errors).Check() : Total{};
}

}  // namespace puerta
