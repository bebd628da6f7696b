#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "commands/printer.hpp"
#include "machine/controls.hpp"
#include "wire/burst.hpp"
#include "wire/packet.hpp"

namespace impresora {

// A status word with some bits shown otherwise; the summary follows unless it is one of them.
std::uint16_t WordShown(Word word, std::uint16_t bits, ForcedBits shown);

// An answer on its way to being spoiled: first its parts, then the bytes that they make, then how
// these leave. Without an answer, what happens to a command instead of being carried out.
class Draft {
 public:
  Draft() = default;
  Draft(const Packet& packet, const Answer& answer);

  // ---- Parts ----
  std::uint8_t sequence = 0;
  std::uint8_t command = 0;
  std::vector<std::string> fields;  // printer word, fiscal word, data

  ForcedBits shown_printer{};  // in this answer only
  ForcedBits shown_fiscal{};

  void TakeWords(const Answer& answer);
  void Render();  // parts to bytes

  // ---- Bytes ----
  std::string bytes;
  std::string before;  // noise or an older answer, ahead of them

  // ---- How they leave ----
  bool heard = true;
  Micros busy{};
  Micros delay{};
  std::map<std::size_t, Micros> pauses;  // before the byte of that index
  Ending ending = Ending::kNone;
  Micros off_time{};

  // Only what stands before byte `at` leaves, then this happens.
  void EndAt(std::size_t at, Ending with, Micros off = Micros{});

  std::vector<Burst> Bursts() const;

 private:
  std::size_t end_at_ = 0;
};

}  // namespace impresora
