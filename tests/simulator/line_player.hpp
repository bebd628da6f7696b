#pragma once

#include <memory>
#include <string>

#include "faults.hpp"
#include "story.hpp"

namespace impresora::prueba {

// Bytes for a reader: a sound frame as "[40 K|0080|0600]", nothing at all as "-".
std::string Frames(std::string_view bytes);

// Frames to a printer at its line, the bytes that it answers, and rules that spoil both. A line is
// "40 K > [40 K|0080|0600]"; with " + " between them frames arrive in one piece, and an answer that
// begins with "@" has the milliseconds at which its bytes come.
class LinePlayer : public Player {
 public:
  LinePlayer();

 protected:
  void Begin(const Settings& settings) override;
  void Command(std::string_view line, std::string_view expected) override;
  Printer& GetPrinter() override { return bench_->session.GetPrinter(); }

  // What observers of the session are told.
  struct Diary : Observer {
    void Exchanged(const Exchange& exchange) override;
    void Printed(const PaperLine& line) override;
    std::string trace, paper;
  };

  Diary told_;
  std::unique_ptr<Bench> bench_;
};

// The bytes of "40 K + ack": frames, damaged ones ("damaged 40 K") and what else a host sends.
std::string BytesOf(std::string_view line);

}  // namespace impresora::prueba
