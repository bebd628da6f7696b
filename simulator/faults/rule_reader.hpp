#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "faults/rule.hpp"
#include "faults/words.hpp"

namespace impresora {

// Thrown where a line stops being a rule.
struct NotExpected {
  std::string read;
  std::string expected;
};

// Reads one line, word by word: when, a colon, and what to do.
class RuleReader {
 public:
  explicit RuleReader(std::string_view line) : line_(line), words_(SplitWords(line)) {}

  // Whether there is nothing but a comment.
  bool Empty() const { return words_.size() == 1; }

  // Throws NotExpected.
  FaultRule Read();

  // ---- For the arguments of actions; each throws NotExpected ----

  Subject WaitsFor() const { return selector_.subject; }
  bool At(std::string_view folded) const { return Here().folded == folded; }
  bool AtEndOfAction() const;
  bool AtSign() const;                             // a number that begins with + or -
  bool BeforeWord(std::string_view folded) const;  // the next one
  bool Take(std::string_view folded);              // if it stands here
  void Need(std::string_view folded);
  std::int64_t Integer(std::int64_t least, std::int64_t most, std::string_view expected);
  Place ByteNumber();                  // "5", "-1", "al azar"
  Place BytePlace();                   // the same behind "byte"
  std::int64_t Field();                // "impresora", "fiscal", "1", "-1"
  Micros Time();                       // "50 ms", "3 s", "2 min"
  std::string Bytes();                 // 4102 or "texto"
  char Byte();                         // two hexadecimal digits
  std::uint8_t Command();              // B, 42 or "Ítem de tique"
  std::uint16_t LampBits(Word& word);  // "fiscal_bateria_baja", "fiscal 0004"
  void ControlAndValue(Action& action);

  [[noreturn]] void Fail(std::string_view expected) const;

 private:
  const RuleWord& Here() const { return words_[at_]; }
  const RuleWord& Next() { return words_[at_++]; }
  bool AtMark(std::string_view mark) const;

  void ReadSelector();
  void ReadOccasion();
  bool ReadOrdinal();
  void ReadSuffix();
  void ReadCommands();
  void ReadChance();
  void ReadStage();
  Action ReadAction();
  const ActionRow& FindAction();

  std::string_view line_;
  std::vector<RuleWord> words_;
  std::size_t at_ = 0;
  Selector selector_;
};

}  // namespace impresora
