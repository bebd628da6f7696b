#include "panel/json_text.hpp"

#include "fiscal/amounts.hpp"
#include "fiscal/calendar.hpp"

namespace impresora {

std::string PlainMoney(std::int64_t hundredths) {
  const bool negative = hundredths < 0;
  std::string digits = Padded(negative ? -hundredths : hundredths, 3);
  digits.insert(digits.size() - kMoneyDecimals, ".");
  return negative ? "-" + digits : digits;
}

std::string IsoDate(std::int64_t moment) {
  const std::string digits = DateDigits(moment);
  return "20" + digits.substr(0, 2) + "-" + digits.substr(2, 2) + "-" + digits.substr(4, 2);
}

std::string IsoMoment(std::int64_t moment) {
  return IsoDate(moment) + " " + PrintedTime(moment);
}

std::string LetterText(char letter) {
  return letter == 0 ? std::string() : std::string(1, letter);
}

std::string OneLine(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace impresora
