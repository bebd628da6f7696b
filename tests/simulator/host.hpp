#pragma once

#include <cstdint>
#include <initializer_list>
#include <random>
#include <span>
#include <string>
#include <string_view>

#include "commands/commands.hpp"
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

// A command that exists, with as many fields as it takes, each one that it allows or any of the texts: of those that
// have to choose now and then, as often as `odd` says.
inline std::string AnyBody(std::mt19937& random, std::span<const std::string_view> texts,
                           unsigned odd = 0) {
  const CommandRow& row = Commands()[random() % Commands().size()];
  std::string body(1, static_cast<char>(row.byte));
  for (const FieldRow& field : row.fields) {
    body += kFs;
    if (field.kind == FieldKind::kChoice && (odd == 0 || random() % odd != 0)) {
      body += field.allowed[random() % field.allowed.size()];
    } else {
      body += texts[random() % texts.size()];
    }
  }
  return body;
}

// A printer that thinks so long about every command.
inline Settings Slow(std::uint32_t milliseconds) {
  Settings settings;
  settings.work_milliseconds.fill(milliseconds);
  return settings;
}

inline Settings FamilySettings(Family family) {
  Settings settings;
  settings.family = family;
  return settings;
}

}  // namespace impresora::prueba
