#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace impresora {

// When the host was last heard, in local seconds, and since when nothing that it sends makes a frame.
struct HostSigns {
  std::optional<std::int64_t> heard;
  std::optional<std::int64_t> puzzled;
};

enum class Cable { kPseudoTerminal, kTcp, kSerial, kPipe };

// What the program knows of the line and of the host's side of it.
struct HostLine {
  Cable cable = Cable::kPseudoTerminal;
  std::string port{};     // what a host opens
  std::string link{};     // a lasting name for it, or nothing
  int baud = 0;           // the printer's speed; 0: no limit
  int host_baud = 0;      // the one that the host has set; 0: nobody can tell
  bool garbles = false;   // they differ, and the bytes suffer
  bool occupied = false;  // another program has the port
};

}  // namespace impresora
