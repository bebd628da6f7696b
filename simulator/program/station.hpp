#pragma once

#include <optional>
#include <string>

#include "line.hpp"
#include "options.hpp"
#include "output_file.hpp"
#include "pseudo_terminal.hpp"

namespace impresora {

// The printer at work on its pseudo-terminal: waits for bytes, for the time of the next one to
// leave, or for a signal to end.
class Station {
 public:
  // Throws std::system_error when a terminal, link or file cannot be had.
  explicit Station(const Options& options);

  // Returns when a signal arrives or the wanted number of documents is done.
  void Run();

 private:
  class SystemClock : public WallClock {
   public:
    std::int64_t LocalSeconds() override;
  };

  bool Wait();
  void Serve();
  void WatchForClosing();
  void DrainWatch();
  void Record();
  bool Finished() const;
  std::optional<Micros> NextWake() const;

  int wanted_documents_;
  Descriptor signals_;
  PseudoTerminal terminal_;
  std::optional<PortLink> link_;
  Descriptor watch_;
  SystemClock clock_;
  Printer printer_;
  Line line_;
  OutputFile paper_;
  OutputFile trace_;
  std::string received_;
  std::optional<Micros> quiet_at_;  // when the line will have been idle for a second
};

}  // namespace impresora
