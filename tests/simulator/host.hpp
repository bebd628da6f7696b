#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "commands/printer.hpp"
#include "fiscal/calendar.hpp"
#include "wire/control_bytes.hpp"
#include "wire/packet.hpp"

namespace impresora::prueba {

// Saturday 21 November 2026, half past ten.
inline std::int64_t OpeningTime() {
  return *ParseDate("261121") + *ParseTime("103000");
}

// Command and fields with their separators, as they stand in a frame.
inline std::string Body(std::initializer_list<std::string_view> parts) {
  std::string body;
  for (const std::string_view part : parts) {
    if (!body.empty()) body += kFs;
    body += part;
  }
  return body;
}

inline const std::string kEmpty(1, kEmptyField);

// A shop with one printer and a clock that stands still unless the test moves it.
class Shop {
 public:
  explicit Shop(Settings settings = {}) : printer(std::move(settings)) {}

  Answer Send(std::initializer_list<std::string_view> parts) { return SendBody(Body(parts)); }

  Answer SendBody(const std::string& body) {
    PacketDecoder decoder;
    for (const char byte : Frame(0x21, body)) {
      if (const auto event = decoder.Push(byte)) return printer.Execute(event->packet, now);
    }
    return {};
  }

  // The everyday commands, with what a test does not care about filled in.
  Answer OpenTicket() { return Send({"@", "C"}); }
  Answer OpenInvoice(std::string_view kind = "T", std::string_view letter = "A") {
    return Send({"`",    kind,   "C",           letter, "1",
                 "F",    "12",   "I",           "I",    "Juan Perez",
                 " ",    "CUIT", "20123456789", "N",    "Calle Falsa 123",
                 kEmpty, kEmpty, kEmpty,        kEmpty, "C"});
  }
  Answer TicketItem(std::string_view text, std::string_view quantity, std::string_view price,
                    std::string_view rate = "2100", std::string_view qualifier = "M",
                    std::string_view internal = "000000000") {
    return Send({"B", text, quantity, price, rate, qualifier, "0001", "0000", internal});
  }
  Answer InvoiceItem(std::string_view text, std::string_view quantity, std::string_view price,
                     std::string_view rate = "2100", std::string_view qualifier = "M",
                     std::string_view internal = "000000000") {
    return Send({"b", text, quantity, price, rate, qualifier, "0001", "0000", kEmpty, kEmpty,
                 kEmpty, kEmpty, internal});
  }
  Answer CloseInvoice(std::string_view kind = "T", std::string_view letter = "A") {
    return Send({"e", kind, letter, kEmpty});
  }

  // The running total as the printer tells it.
  std::string InvoiceTotal() { return Send({"c", "N", kEmpty}).fields.at(2); }

  std::string PaperText() {
    std::string text;
    const std::size_t columns = printer.GetSettings().PaperColumns();
    for (const PaperLine& line : printer.TakePaper()) text += AsText(line, columns) + "\n";
    return text;
  }

  Printer printer;
  std::int64_t now = OpeningTime();
};

inline Settings FamilySettings(Family family) {
  Settings settings;
  settings.family = family;
  return settings;
}

}  // namespace impresora::prueba
