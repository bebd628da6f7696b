#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace impresora {

// How many digits a numeric field holds before and after its implied decimal point.
struct Digits {
  int integers;
  int decimals;
};

// Money is counted in hundredths, quantities and what comes per unit (prices, internal taxes) in
// ten-thousandths and IVA rates in hundredths of a percent. Halves round away from zero
// everywhere.
inline constexpr int kMoneyDecimals = 2;
inline constexpr int kQuantityDecimals = 4;
inline constexpr int kPriceDecimals = 4;
inline constexpr int kRateDecimals = 2;

// Largest total a document may reach: nine integer digits.
inline constexpr std::int64_t kLargestTotal = 99'999'999'999;

// numerator / denominator; the denominator is positive.
std::int64_t DivideRounded(std::int64_t numerator, std::int64_t denominator);

// value * part / whole without overflowing on the way; 0 <= part <= whole, whole > 0.
std::int64_t Share(std::int64_t value, std::int64_t part, std::int64_t whole);

// Reads a field of digits with an implied point (or a written one) into units of 10^-`decimals`.
// Nothing when it is empty, holds anything but digits, or has more digits than `digits` allows:
// altogether, and before and behind a written point.
std::optional<std::int64_t> ParseDigits(std::string_view text, Digits digits, int decimals);

// Quantity times unit price, in hundredths; nothing when no total could hold it.
std::optional<std::int64_t> LineAmount(std::int64_t quantity, std::int64_t price);

// IVA that comes on top of a net amount, and the net part of an amount that includes it.
std::int64_t IvaOnNet(std::int64_t net, std::int64_t rate);
std::int64_t NetOfGross(std::int64_t gross, std::int64_t rate);

// "1.234,56"; `decimals` says how many of the units' digits follow the comma.
std::string FormatDecimal(std::int64_t units, int decimals);
std::string FormatMoney(std::int64_t hundredths);

// Quantities and prices lose the zeros that say nothing: "2", "0,5", but a price keeps "10,00".
std::string FormatQuantity(std::int64_t ten_thousandths);
std::string FormatPrice(std::int64_t ten_thousandths);

// Decimal digits padded with zeros to `width`, a minus sign in front of a negative value.
std::string Padded(std::int64_t value, int width);

}  // namespace impresora
