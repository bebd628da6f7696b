#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "commands/printer.hpp"
#include "wire/packet.hpp"

namespace impresora {

// What the two sides of a comparison are called: "grabado" and "llegó".
struct Sides {
  std::string_view first, second;
};

// The frames in a stretch of the line, damaged ones too.
std::vector<Event> Frames(std::string_view bytes);

// The command of an exchange, or null where the host's bytes hold no sound one.
const Packet* CommandOf(const std::vector<Event>& events);

// "3 (B Ítem de tique)".
std::string ExchangeName(unsigned number, const Packet& packet);

// How two commands differ, a sentence each; nothing when they do not. Sequence numbers do not
// count, and neither does what sets the clock when `clock` is false.
std::vector<std::string> CommandDifferences(const Packet& first, const Packet& second, Sides sides,
                                            bool clock);

// The same for what the printer sent to `command`: words, data, and whether it answered at all.
std::vector<std::string> AnswerDifferences(const Packet& command, std::string_view first,
                                           std::string_view second, Sides sides, bool clock);

}  // namespace impresora
