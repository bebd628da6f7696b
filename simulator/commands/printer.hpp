#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "machine/controls.hpp"
#include "machine/machine.hpp"
#include "memory/store.hpp"
#include "wire/packet.hpp"

namespace impresora {

struct Answer {
  std::uint16_t printer = 0;
  std::uint16_t fiscal = 0;
  std::vector<std::string> fields;
  std::string_view why = {};  // it was refused, for people; nothing of it goes out
};

// The fiscal printer as such: commands in, answers and paper out. It does no input or output and
// looks at no clock; who drives it says what time it is, in seconds of local civil time.
class Printer {
 public:
  explicit Printer(Settings settings);

  // Carries out the command and, with a memory, keeps what it did before it returns. Throws
  // MemoryFailure when that cannot be kept: such a command must not be answered.
  Answer Execute(const Packet& packet, std::int64_t local_seconds);

  // Takes up what the memory holds, or makes it begin with this printer when it is new.
  void UseMemory(Store& store);

  // Off and on again: everything is as the memory has it; an open document is still open.
  void Restart();

  // Writes down what was changed other than by a command.
  void Keep();

  // Changes what a person can change and keeps it; false when the value is out of its range.
  bool Set(const Control& control, std::int64_t value);

  // What time it is, for who wants the words or the clock between two commands.
  void SetTime(std::int64_t local_seconds);

  // How long a command keeps the printer busy before it answers.
  std::chrono::milliseconds WorkTime(std::uint8_t command) const;

  std::vector<PaperLine> TakePaper() { return machine_.paper.Take(); }

  // The documents finished since the last call, fiscal, non-fiscal and reports.
  std::vector<Receipt> TakeReceipts();

  // What goes wrong with the machine, for whoever plays the part of the world.
  MachineFaults& Faults() { return machine_.faults; }

  Stage GetStage() const { return machine_.GetStage(); }
  unsigned DrawerOpenings() const { return machine_.drawer_openings; }
  const Settings& GetSettings() const { return machine_.settings; }

  // Both words as an answer would carry them now.
  std::uint16_t PrinterWord() const;
  std::uint16_t FiscalWord() const;

  const Machine& GetMachine() const { return machine_; }
  Machine& GetMachine() { return machine_; }

 private:
  bool Load();
  void CutShort();
  void Account(std::size_t lines_before);

  Machine machine_;
  Store* store_ = nullptr;
  std::vector<Receipt> receipts_;
};

// The answer as it goes out on the line.
std::string FrameAnswer(const Packet& packet, const Answer& answer);

}  // namespace impresora
