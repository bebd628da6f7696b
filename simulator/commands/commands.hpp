#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "commands/command.hpp"
#include "wire/packet.hpp"

namespace impresora {

// Every command that some printer knows, by ascending byte.
std::span<const CommandRow> Commands();

// The row for a byte, whatever the family, or null.
const CommandRow* FindCommand(std::uint8_t byte);

// Whether it needs paper, as the packet's first letter says; and whether it leaves the printer as it
// was.
bool NeedsPaper(const CommandRow& row, const Packet& packet);
bool OnlyAsks(const Packet& packet);

// What the data fields of a command's answer are called, in order; none for a command that answers
// with its status alone.
std::span<const std::string_view> AnswerNames(const Packet& packet);

}  // namespace impresora
