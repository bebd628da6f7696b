#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "commands/printer.hpp"
#include "wire/packet.hpp"

namespace kestra::tool {

// A frame of the log, which is written without its checksum; nothing when it is none.
std::optional<impresora::Packet> ReadFrame(std::string_view bytes);

enum class Heard {
  kOwn,      // an answer to this frame
  kForeign,  // answers, none of them to this frame
  kDamaged,  // bytes that make no answer
  kSilence,
};

// What arrived while somebody waited for an answer.
struct Hearing {
  Heard heard = Heard::kSilence;
  impresora::Answer answer{};   // of an own one
  bool checksum_wrong = false;  // which the driver does not look at
  unsigned busy = 0;            // how often the printer said so
  unsigned foreign = 0;         // answers to other frames
};

// `frame`: what it was sent for, or null.
Hearing ReadHearing(std::string_view bytes, const impresora::Packet* frame);

// Conditions for which the driver takes a command for failed.
inline constexpr std::uint16_t kFailingPrinter = 0x000C;
inline constexpr std::uint16_t kFailingFiscal = 0x08FF;

bool Refuses(const impresora::Answer& answer);

}  // namespace kestra::tool
