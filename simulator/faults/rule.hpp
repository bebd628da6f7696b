#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "machine/controls.hpp"
#include "machine/machine.hpp"
#include "wire/burst.hpp"

namespace impresora {

struct ActionRow;

// The numbers that chance draws: the same everywhere for the same seed.
using Chance = std::mt19937_64;

// What a rule waits for.
enum class Subject : unsigned { kCommand = 1, kAnswer = 2, kLine = 4 };

// Which of them: every n-th, the n-th only, or all from the n-th on.
enum class Times { kEvery, kOnly, kFrom };

inline constexpr std::uint32_t kSure = 1'000'000;
inline constexpr unsigned kAnyStage = 0xFF;

struct Selector {
  Subject subject = Subject::kAnswer;
  Times times = Times::kEvery;
  std::uint64_t n = 1;
  std::vector<std::uint8_t> commands;  // none: any
  unsigned stages = kAnyStage;
  std::uint32_t millionths = kSure;  // how likely it is when it is due
  std::uint64_t most = 0;            // acts at most so often; 0: without end
};

// A byte, counted from 1, or backward from -1; 0 is any of them, by chance.
using Place = std::int64_t;
inline constexpr Place kAnyPlace = 0;

// A field of the answer: these two, or its data from 1, or backward from -1.
inline constexpr std::int64_t kPrinterWordField = 1'000'000'000;
inline constexpr std::int64_t kFiscalWordField = 1'000'000'001;

// One action; each row uses the members that it needs.
struct Action {
  const ActionRow* row = nullptr;
  std::string text;  // as written
  std::optional<Place> place;
  std::optional<std::int64_t> field;
  std::int64_t number = 0;
  std::int64_t other = 0;
  bool flag = false;
  Micros time{};
  std::string bytes;
  const Control* control = nullptr;
  Word word = Word::kPrinter;
};

struct FaultRule {
  unsigned id = 0;
  std::string text;
  Selector selector;
  std::vector<Action> actions;
  Chance chance;

  std::uint64_t seen = 0;  // what the selector counts
  std::uint64_t due = 0;
  std::uint64_t acted = 0;

  bool Over() const;

  // Counts `count` more of its subject; whether its moment is among them and chance agrees.
  bool Due(Subject subject, std::uint8_t command, Stage stage, std::uint64_t count);
};

}  // namespace impresora
