#include "outbox/letter.hpp"

#include <array>
#include <chrono>
#include <cstdio>

namespace puerta {
namespace {

constexpr std::string_view kSchema = "kestra.puerta/1";

std::string Level(const std::string& printer) {
  return printer.empty() ? "-" : printer;
}

// What the file holds is an object already; should it be none, the rest is told all the same.
Json DataOf(const std::string& text) {
  Json data = Json::parse(text, nullptr, false);
  return data.is_object() ? data : Json::object();
}

}  // namespace

std::string Timestamp(Moment moment) {
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  std::array<char, 64> text{};
  const int length = std::snprintf(
      text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ",
      static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
      static_cast<unsigned>(date.day()), static_cast<int>(time.hours().count()),
      static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()),
      static_cast<int>(time.subseconds().count()));
  return {text.data(), static_cast<std::size_t>(length)};
}

std::string TopicOf(const OutboxSettings& settings, const Letter& letter) {
  return settings.prefix + "/v1/" + settings.shop + "/" + Level(letter.printer) + "/" + letter.kind;
}

std::string ReceiptsOf(const OutboxSettings& settings) {
  return settings.prefix + "/v1/" + settings.shop + "/+/acuse";
}

std::string PayloadOf(const OutboxSettings& settings, const Letter& letter) {
  return LineOf({{"esquema", kSchema},
                 {"clave", letter.key},
                 {"local", settings.shop},
                 {"impresora", Level(letter.printer)},
                 {"secuencia", letter.sequence},
                 {"tipo", letter.kind},
                 {"momento", Timestamp(letter.moment)},
                 {"datos", DataOf(letter.data)}});
}

}  // namespace puerta
